// SPDX-License-Identifier: MIT
#include "platform/PixelBuffer.hpp"

namespace mobrel {

bool PixelBuffer::isValidSize(std::int64_t width, std::int64_t height) noexcept {
    constexpr std::int64_t kPixelsBelow = std::int64_t{1} << 29;  // 2^31 bytes
    return width >= 1 && height >= 1 && width < kPixelsBelow && height < kPixelsBelow &&
           width * height < kPixelsBelow;
}

std::optional<PixelBuffer> PixelBuffer::create(int width, int height) noexcept {
    if (!isValidSize(width, height)) return std::nullopt;
    PixelBuffer buffer;
    // calloc hands out untouched zero pages: a page costs nothing until a pixel on it is written.
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    buffer.m_bits.reset(static_cast<std::uint8_t*>(std::calloc(pixels, 4)));
    if (buffer.m_bits == nullptr) return std::nullopt;
    buffer.m_width = width;
    buffer.m_height = height;
    return buffer;
}

}  // namespace mobrel
