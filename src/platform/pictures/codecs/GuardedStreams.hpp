// SPDX-License-Identifier: MIT
// Files as the callbacks of C libraries meet them: no exception may cross such a library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <vector>

#include "platform/system/ByteSource.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// Buffers a source. What the source throws is kept for throwFailure(), and the bytes end there. It reads
/// ahead, so the source may end up behind the bytes that were taken.
class GuardedSource {
 public:
    explicit GuardedSource(ByteSource& source);

    /// Takes the next bytes and fills `into` with them. False when they end before.
    bool read(std::span<std::uint8_t> into) noexcept;

    /// The next `count` bytes without taking them, fewer only where they end. Valid until the next call.
    std::span<const std::uint8_t> ahead(std::size_t count) noexcept;

    /// Takes all that is buffered: at least one byte, unless they end here. Valid until the next call.
    std::span<const std::uint8_t> takeBuffer() noexcept;

    /// Puts back the last `count` bytes that takeBuffer() gave.
    void giveBack(std::size_t count) noexcept { m_next -= count; }

    /// True once more was asked for than there is.
    bool hasEnded() const noexcept { return m_hasEnded; }

    /// Throws what the source has thrown; nothing else happens.
    void throwFailure() const;

 private:
    bool buffer(std::size_t count) noexcept;
    void fillBuffer(std::size_t count);

    ByteSource& m_source;
    std::vector<std::uint8_t> m_buffer;
    std::size_t m_next = 0;  // first byte not yet taken
    std::size_t m_end = 0;   // behind the last byte read
    bool m_isDry = false;    // the source has no more
    bool m_hasEnded = false;
    std::exception_ptr m_failure;
};

/// Writes to a file until that throws; what it throws is kept for throwFailure().
class GuardedWriter {
 public:
    explicit GuardedWriter(FileWriter& file) noexcept : m_file(file) {}

    /// False when the file has thrown, now or before.
    bool write(std::span<const std::uint8_t> bytes) noexcept;

    /// Throws what the file has thrown; nothing else happens.
    void throwFailure() const;

 private:
    FileWriter& m_file;
    std::exception_ptr m_failure;
};

}  // namespace mobrel
