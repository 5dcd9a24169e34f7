// SPDX-License-Identifier: MIT
// Files as the callbacks of C libraries meet them: no exception may cross such a library, and a library that
// gives up jumps.
#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <string>

#include "platform/system/BufferedSource.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// Runs a step that may give up by a jump to `back`. False when it did. What the jump passes over must own
/// nothing.
template <typename Step>
bool runToEnd(std::jmp_buf& back, const Step& step) {
    if (setjmp(back) != 0) return false;
    step();
    return true;
}

/// "in line 3 of 20", the line counted from 0.
std::string placeOfLine(std::int64_t line, std::int64_t lines);

/// The bytes of a picture file. What the source throws is kept, and the bytes end there; the functions that
/// throw throw that before anything else.
class GuardedSource {
 public:
    explicit GuardedSource(BufferedSource& source) noexcept : m_source(source) {}

    /// Takes the next bytes and fills `into` with them. False when they end before.
    bool read(std::span<std::uint8_t> into) noexcept;

    /// The next `count` bytes without taking them, fewer only where they end. Valid until the next call.
    std::span<const std::uint8_t> ahead(std::size_t count) noexcept;

    /// Takes all that is buffered: at least one byte, unless they end here. Valid until the next call.
    std::span<const std::uint8_t> takeBuffer() noexcept;

    /// Puts back the last `count` bytes that takeBuffer() gave.
    void giveBack(std::size_t count) noexcept { m_source.giveBack(count); }

    /// Throws PictureError, with that text, when the bytes ahead do not begin with the signature.
    void requireStart(std::span<const std::uint8_t> signature, const char* refusal);

    /// Throws PictureError when fewer than `count` bytes are ahead, for they could not fill `what`.
    void requireBytes(std::size_t count, const std::string& what);

    /// Throws what made a library give up: std::bad_alloc, or PictureError that says whether the file ends
    /// there or is damaged, and for what reason where that is not null.
    [[noreturn]] void fail(const std::string& place, const char* reason, bool isOutOfMemory) const;

 private:
    void throwFailure() const;

    BufferedSource& m_source;
    bool m_hasEnded = false;  // more was asked for than there is
    std::exception_ptr m_failure;
};

/// Writes to a file until that throws.
class GuardedWriter {
 public:
    explicit GuardedWriter(FileWriter& file) noexcept : m_file(file) {}

    /// False when the file has thrown, now or before.
    bool write(std::span<const std::uint8_t> bytes) noexcept;

    /// Throws what the file has thrown; std::bad_alloc, which is all else that a library can fail for, where
    /// it has not written the picture.
    void finish(bool isWritten) const;

 private:
    FileWriter& m_file;
    std::exception_ptr m_failure;
};

}  // namespace mobrel
