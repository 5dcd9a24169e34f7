// SPDX-License-Identifier: MIT
// What the drawing operations of a device context share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

constexpr std::size_t kPixelBytes = 4;

inline std::uint8_t* pixelAt(std::uint8_t* line, int x) {
    return line + static_cast<std::size_t>(x) * kPixelBytes;
}
inline const std::uint8_t* pixelAt(const std::uint8_t* line, int x) {
    return line + static_cast<std::size_t>(x) * kPixelBytes;
}

/// A pixel as one number, 0xUURRGGBB, in the byte order of this processor's family.
inline std::uint32_t readPixel(const std::uint8_t* pixel) {
    std::uint32_t value;
    std::memcpy(&value, pixel, sizeof value);
    return value;
}
inline void writePixel(std::uint8_t* pixel, std::uint32_t value) {
    std::memcpy(pixel, &value, sizeof value);
}

/// The pixel of a colour, and the colour of a pixel; byte 3 is 0.
constexpr std::uint32_t pixelOf(Color color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr Color colorOf(std::uint32_t pixel) {
    return pixelOf(pixel);
}

/// Calls visit(pixel, x, y) for each pixel of the rectangle that lies on the target.
template <typename Visit>
void forEachPixel(DeviceContext& target, const Rect& rect, Visit&& visit) {
    const Rect inside = intersection(rect, target.bounds());
    for (int y = inside.top; y < inside.bottom; ++y) {
        std::uint8_t* const line = target.line(y);
        for (int x = inside.left; x < inside.right; ++x) visit(pixelAt(line, x), x, y);
    }
}

}  // namespace mobrel
