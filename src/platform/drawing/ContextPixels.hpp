// SPDX-License-Identifier: MIT
// What the drawing operations of a device context share.
#pragma once

#include <algorithm>
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

/// The pixel of a colour; byte 3 is 0.
constexpr std::uint32_t pixelOf(Color color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

constexpr bool isEmpty(const Rect& rect) {
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

/// What of the rectangle lies on the target.
inline Rect cutTo(const DeviceContext& target, const Rect& rect) {
    return {std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, target.width()),
            std::min(rect.bottom, target.height())};
}

/// `pixels` of these, no further than `limit`.
constexpr int forwards(int from, int pixels, int limit) {
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{from} + pixels, limit));
}
constexpr int backwards(int from, int pixels, int limit) {
    return static_cast<int>(std::max<std::int64_t>(std::int64_t{from} - pixels, limit));
}

/// The rectangle without a border of so many pixels; comes out empty where nothing is left.
constexpr Rect shrunk(const Rect& rect, int pixels) {
    return {forwards(rect.left, pixels, rect.right), forwards(rect.top, pixels, rect.bottom),
            backwards(rect.right, pixels, rect.left), backwards(rect.bottom, pixels, rect.top)};
}

}  // namespace mobrel
