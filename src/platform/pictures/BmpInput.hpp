// SPDX-License-Identifier: MIT
// The bytes of one bitmap file, taken from a source through a buffer of fixed size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/system/ByteSource.hpp"

namespace mobrel {

/// Little-endian numbers, wherever they stand in memory.
inline std::uint16_t loadU16(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}
inline std::uint32_t loadU32(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}
inline std::int32_t loadI32(const std::uint8_t* bytes) {
    return static_cast<std::int32_t>(loadU32(bytes));
}

/// Hands out runs of bytes front to back. It reads ahead, so the source may end up behind the bytes that
/// were taken.
class BmpInput {
 public:
    /// The longest run that take() gives.
    static constexpr std::size_t kMaxTake = 32 * 1024;

    explicit BmpInput(ByteSource& source);

    /// The next `count` bytes (at most kMaxTake) side by side, valid until the next call; null, and
    /// nothing taken, when the file ends before.
    const std::uint8_t* take(std::size_t count) {
        if (m_end - m_next < count && !refill(count)) return nullptr;
        const std::uint8_t* run = m_buffer.get() + m_next;
        m_next += count;
        return run;
    }

    /// Passes over `count` bytes. False when the file ends before.
    bool skip(std::uint64_t count);

    /// Bytes taken and skipped so far.
    std::uint64_t position() const noexcept { return m_bufferStart + m_next; }

    /// Bytes still to take, where the source knows.
    std::optional<std::uint64_t> remaining() const;

 private:
    bool refill(std::size_t count);

    ByteSource& m_source;
    std::unique_ptr<std::uint8_t[]> m_buffer;
    std::uint64_t m_bufferStart = 0;  // place of the buffer's first byte in the file
    std::size_t m_next = 0;           // first byte not yet taken
    std::size_t m_end = 0;            // behind the last byte read
};

}  // namespace mobrel
