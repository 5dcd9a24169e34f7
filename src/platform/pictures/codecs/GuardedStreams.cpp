// SPDX-License-Identifier: MIT
#include "platform/pictures/codecs/GuardedStreams.hpp"

#include <algorithm>
#include <cstring>

namespace mobrel {

namespace {

constexpr std::size_t kBufferBytes = 64 * 1024;

}  // namespace

GuardedSource::GuardedSource(ByteSource& source) : m_source(source), m_buffer(kBufferBytes) {}

bool GuardedSource::read(std::span<std::uint8_t> into) noexcept {
    while (!into.empty()) {
        if (m_next == m_end && !buffer(1)) return false;
        const std::size_t count = std::min(into.size(), m_end - m_next);
        std::memcpy(into.data(), m_buffer.data() + m_next, count);
        m_next += count;
        into = into.subspan(count);
    }
    return true;
}

std::span<const std::uint8_t> GuardedSource::ahead(std::size_t count) noexcept {
    buffer(count);
    return {m_buffer.data() + m_next, std::min(count, m_end - m_next)};
}

std::span<const std::uint8_t> GuardedSource::takeBuffer() noexcept {
    buffer(1);
    const std::span<const std::uint8_t> taken(m_buffer.data() + m_next, m_end - m_next);
    m_next = m_end;
    return taken;
}

void GuardedSource::throwFailure() const {
    if (m_failure) std::rethrow_exception(m_failure);
}

bool GuardedSource::buffer(std::size_t count) noexcept {
    if (m_end - m_next >= count) return true;
    try {
        fillBuffer(count);
    } catch (...) {
        m_failure = std::current_exception();
        m_isDry = true;
    }
    m_hasEnded = m_hasEnded || m_end - m_next < count;
    return m_end - m_next >= count;
}

// The buffer grows only with bytes that are there.
void GuardedSource::fillBuffer(std::size_t count) {
    if (m_isDry) return;
    std::memmove(m_buffer.data(), m_buffer.data() + m_next, m_end - m_next);
    m_end -= m_next;
    m_next = 0;
    while (m_end < count && !m_isDry) {
        if (m_end == m_buffer.size()) m_buffer.resize(m_buffer.size() * 2);
        const std::size_t room = m_buffer.size() - m_end;
        const std::size_t got = m_source.read({m_buffer.data() + m_end, room});
        m_end += got;
        m_isDry = got < room;
    }
}

bool GuardedWriter::write(std::span<const std::uint8_t> bytes) noexcept {
    if (m_failure) return false;
    try {
        m_file.write(bytes);
    } catch (...) {
        m_failure = std::current_exception();
    }
    return m_failure == nullptr;
}

void GuardedWriter::throwFailure() const {
    if (m_failure) std::rethrow_exception(m_failure);
}

}  // namespace mobrel
