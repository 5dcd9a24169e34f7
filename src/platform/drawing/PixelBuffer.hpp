// SPDX-License-Identifier: MIT
// The memory behind every surface and picture object.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace mobrel {

static_assert(std::endian::native == std::endian::little, "a pixel read as a word is 0x00RRGGBB");

/// Gives the memory of pixels back: mapped bytes where their number is told, else that of the heap.
struct ReleasePixels {
    std::size_t mappedBytes = 0;
    void operator()(std::uint8_t* bits) const noexcept;
};

/// Owns width x height pixels of 4 bytes (blue, green, red, unused), rows without padding. The order
/// of the rows is the holder's. Moves, never copies.
class PixelBuffer {
 public:
    PixelBuffer() = default;
    PixelBuffer(PixelBuffer&& other) noexcept
        : m_bits(std::move(other.m_bits)),
          m_width(std::exchange(other.m_width, 0)),
          m_height(std::exchange(other.m_height, 0)) {}
    PixelBuffer& operator=(PixelBuffer&& other) noexcept {
        m_bits = std::move(other.m_bits);
        m_width = std::exchange(other.m_width, 0);
        m_height = std::exchange(other.m_height, 0);
        return *this;
    }

    /// True when a buffer of that size may be made: both sides at least 1, less than 2^31 bytes.
    static bool isValidSize(std::int64_t width, std::int64_t height) noexcept;

    /// A zeroed buffer; nothing when the size is not valid or memory is short.
    static std::optional<PixelBuffer> create(int width, int height) noexcept;

    bool empty() const noexcept { return m_bits == nullptr; }
    int width() const noexcept { return m_width; }
    int height() const noexcept { return m_height; }
    std::size_t bytesPerRow() const noexcept { return static_cast<std::size_t>(m_width) * 4; }

    /// The first byte; row r starts r * bytesPerRow() behind it. Null when empty.
    std::uint8_t* bits() noexcept { return m_bits.get(); }
    const std::uint8_t* bits() const noexcept { return m_bits.get(); }
    /// Row r in memory order.
    std::uint8_t* row(int r) noexcept { return bits() + static_cast<std::size_t>(r) * bytesPerRow(); }
    const std::uint8_t* row(int r) const noexcept {
        return bits() + static_cast<std::size_t>(r) * bytesPerRow();
    }

 private:
    std::unique_ptr<std::uint8_t[], ReleasePixels> m_bits;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace mobrel
