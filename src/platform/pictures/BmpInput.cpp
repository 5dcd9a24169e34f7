// SPDX-License-Identifier: MIT
// The buffer between a source and the decoders.
#include "platform/pictures/BmpInput.hpp"

#include <algorithm>
#include <cstring>

namespace mobrel {

namespace {

// Small enough to stay in the cache between the source and the decoder, and a multiple of kMaxTake, so
// that little of it moves on a refill.
constexpr std::size_t kBufferBytes = 2 * BmpInput::kMaxTake;

}  // namespace

BmpInput::BmpInput(ByteSource& source)
    : m_source(source), m_buffer(std::make_unique_for_overwrite<std::uint8_t[]>(kBufferBytes)) {}

bool BmpInput::refill(std::size_t count) {
    const std::size_t kept = m_end - m_next;
    std::memmove(m_buffer.get(), m_buffer.get() + m_next, kept);
    m_bufferStart += m_next;
    m_next = 0;
    m_end = kept + m_source.read({m_buffer.get() + kept, kBufferBytes - kept});
    return m_end >= count;
}

bool BmpInput::skip(std::uint64_t count) {
    while (count > 0) {
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(count, kMaxTake));
        if (take(step) == nullptr) return false;
        count -= step;
    }
    return true;
}

std::optional<std::uint64_t> BmpInput::remaining() const {
    const std::optional<std::uint64_t> unread = m_source.remaining();
    if (!unread) return std::nullopt;
    return *unread + (m_end - m_next);
}

}  // namespace mobrel
