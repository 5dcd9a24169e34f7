// SPDX-License-Identifier: MIT
// A stream through a buffer, which can be looked at before its bytes are taken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/system/ByteSource.hpp"

namespace mobrel {

/// Hands out runs of bytes front to back. It reads ahead, so the source may end up behind the bytes that were
/// taken. The functions throw what the source throws, and std::bad_alloc.
class BufferedSource {
 public:
    explicit BufferedSource(ByteSource& source);

    /// The next `count` bytes without taking them, fewer only where they end. Valid until the next call.
    /// Memory is used up only as bytes arrive, here and below.
    std::span<const std::uint8_t> ahead(std::size_t count);

    /// Takes the next `count` bytes, which are valid until the next call. Null, and nothing taken, when they
    /// end before.
    const std::uint8_t* take(std::size_t count) {
        if (m_end - m_next < count && !fill(count)) return nullptr;
        const std::uint8_t* run = m_buffer.data() + m_next;
        m_next += count;
        return run;
    }

    /// Takes all that is buffered: at least one byte, unless they end here. Valid until the next call.
    std::span<const std::uint8_t> takeBuffer();

    /// Puts back the last `count` bytes that takeBuffer() gave.
    void giveBack(std::size_t count) noexcept { m_next -= count; }

    /// Passes over `count` bytes. False when they end before.
    bool skip(std::uint64_t count);

    /// Bytes taken and skipped so far.
    std::uint64_t position() const noexcept { return m_bufferStart + m_next; }

    /// Bytes still to take, where the source knows.
    std::optional<std::uint64_t> remaining() const;

 private:
    bool fill(std::size_t count);

    ByteSource& m_source;
    std::vector<std::uint8_t> m_buffer;
    std::uint64_t m_bufferStart = 0;  // place of the buffer's first byte in the stream
    std::size_t m_next = 0;           // first byte not yet taken
    std::size_t m_end = 0;            // behind the last byte read
    bool m_isDry = false;             // the source has no more
};

}  // namespace mobrel
