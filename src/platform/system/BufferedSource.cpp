// SPDX-License-Identifier: MIT
#include "platform/system/BufferedSource.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace mobrel {

namespace {

// Small enough to stay in the cache between the source and those who take from it.
constexpr std::size_t kBufferBytes = 64 * 1024;

}  // namespace

BufferedSource::BufferedSource(ByteSource& source) : m_source(source), m_buffer(kBufferBytes) {}

std::span<const std::uint8_t> BufferedSource::ahead(std::size_t count) {
    if (m_end - m_next < count) fill(count);
    return {m_buffer.data() + m_next, std::min(count, m_end - m_next)};
}

std::span<const std::uint8_t> BufferedSource::takeBuffer() {
    ahead(1);
    const std::size_t taken = std::exchange(m_next, m_end);
    return {m_buffer.data() + taken, m_end - taken};
}

bool BufferedSource::skip(std::uint64_t count) {
    while (count > 0) {
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(count, kBufferBytes));
        if (take(step) == nullptr) return false;
        count -= step;
    }
    return true;
}

std::optional<std::uint64_t> BufferedSource::remaining() const {
    const std::optional<std::uint64_t> unread = m_source.remaining();
    if (!unread) return std::nullopt;
    return *unread + (m_end - m_next);
}

bool BufferedSource::fill(std::size_t count) {
    std::memmove(m_buffer.data(), m_buffer.data() + m_next, m_end - m_next);
    m_bufferStart += m_next;
    m_end -= m_next;
    m_next = 0;
    while (m_end < count && !m_isDry) {
        if (m_end == m_buffer.size()) m_buffer.resize(m_buffer.size() * 2);
        // Of a stream that turns out to be something else no more is taken, or waited for, than was asked
        // for.
        const bool isStart = m_bufferStart + m_end == 0;
        const std::size_t free = m_buffer.size() - m_end;
        const std::size_t room = isStart ? std::min(count, free) : free;
        const std::size_t got = m_source.read({m_buffer.data() + m_end, room});
        m_end += got;
        m_isDry = got < room;
    }
    return m_end >= count;
}

}  // namespace mobrel
