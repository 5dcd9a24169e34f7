// SPDX-License-Identifier: MIT
// The bytes of a file, to be read where they lie.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mobrel::clipboard {

/// A whole file in memory. The file must not become shorter meanwhile.
class MappedFile {
 public:
    /// The descriptor is not needed any more afterwards. Throws RuntimeError, errorNumberOf the reason; an
    /// empty file cannot be mapped.
    explicit MappedFile(int descriptor);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    std::span<const std::uint8_t> bytes() const noexcept { return {m_bytes, m_size}; }

 private:
    const std::uint8_t* m_bytes = nullptr;
    std::size_t m_size = 0;
};

}  // namespace mobrel::clipboard
