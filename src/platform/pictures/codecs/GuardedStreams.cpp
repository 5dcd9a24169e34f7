// SPDX-License-Identifier: MIT
#include "platform/pictures/codecs/GuardedStreams.hpp"

#include <algorithm>
#include <new>

#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

std::string placeOfLine(std::int64_t line, std::int64_t lines) {
    return "in line " + std::to_string(line + 1) + " of " + std::to_string(lines);
}

bool GuardedSource::read(std::span<std::uint8_t> into) noexcept {
    const std::span<const std::uint8_t> bytes = ahead(into.size());
    if (bytes.size() < into.size()) return false;
    std::ranges::copy(bytes, into.begin());
    m_source.take(bytes.size());
    return true;
}

std::span<const std::uint8_t> GuardedSource::ahead(std::size_t count) noexcept {
    std::span<const std::uint8_t> bytes;
    try {
        if (!m_failure) bytes = m_source.ahead(count);
    } catch (...) {
        m_failure = std::current_exception();
    }
    m_hasEnded = m_hasEnded || bytes.size() < count;
    return bytes;
}

std::span<const std::uint8_t> GuardedSource::takeBuffer() noexcept {
    if (ahead(1).empty()) return {};
    return m_source.takeBuffer();
}

void GuardedSource::requireStart(std::span<const std::uint8_t> signature, const char* refusal) {
    if (std::ranges::equal(ahead(signature.size()), signature)) return;
    throwFailure();
    throw PictureError(refusal);
}

void GuardedSource::requireBytes(std::size_t count, const std::string& what) {
    const std::size_t found = ahead(count).size();
    if (found == count) return;
    throwFailure();
    throw PictureError(std::to_string(found) + " bytes cannot fill " + what);
}

void GuardedSource::fail(const std::string& place, const char* reason, bool isOutOfMemory) const {
    throwFailure();
    if (isOutOfMemory) throw std::bad_alloc();
    if (m_hasEnded) throw PictureError("the file ends " + place);
    const std::string detail = reason == nullptr ? "" : std::string(" (") + reason + ")";
    throw PictureError("the file is damaged " + place + detail);
}

void GuardedSource::throwFailure() const {
    if (m_failure) std::rethrow_exception(m_failure);
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

void GuardedWriter::finish(bool isWritten) const {
    if (m_failure) std::rethrow_exception(m_failure);
    if (!isWritten) throw std::bad_alloc();
}

}  // namespace mobrel
