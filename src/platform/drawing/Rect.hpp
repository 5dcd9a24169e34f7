// SPDX-License-Identifier: MIT
// Rectangles of whole pixels.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/base/Numbers.hpp"

namespace mobrel {

/// Right and bottom are exclusive.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int width() const { return right - left; }
    constexpr int height() const { return bottom - top; }
    /// True also for a rectangle whose sides are the wrong way round.
    constexpr bool isEmpty() const { return left >= right || top >= bottom; }
    constexpr bool contains(double x, double y) const {
        return x >= left && x < right && y >= top && y < bottom;
    }

    bool operator==(const Rect&) const = default;
};

/// What two rectangles share; empty where that is nothing.
constexpr Rect intersection(const Rect& a, const Rect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

/// Sides that would leave 32 bits stop at their ends.
constexpr Rect moved(const Rect& rect, std::int64_t x, std::int64_t y) {
    return {clampInt(rect.left + x), clampInt(rect.top + y), clampInt(rect.right + x),
            clampInt(rect.bottom + y)};
}

/// `pixels` after or before a place, no further than `limit`.
constexpr int forwards(int from, int pixels, int limit) {
    return static_cast<int>(std::min<std::int64_t>(std::int64_t{from} + pixels, limit));
}
constexpr int backwards(int from, int pixels, int limit) {
    return static_cast<int>(std::max<std::int64_t>(std::int64_t{from} - pixels, limit));
}

/// The rectangle without a border of so many pixels; empty where nothing is left.
constexpr Rect shrunk(const Rect& rect, int pixels) {
    return {forwards(rect.left, pixels, rect.right), forwards(rect.top, pixels, rect.bottom),
            backwards(rect.right, pixels, rect.left), backwards(rect.bottom, pixels, rect.top)};
}

/// The left, top, right and bottom side, `thickness` pixels thick and no thicker than the rectangle.
constexpr std::array<Rect, 4> sidesOf(const Rect& rect, int thickness) {
    const auto [left, top, right, bottom] = rect;
    return {{{left, top, forwards(left, thickness, right), bottom},
             {left, top, right, forwards(top, thickness, bottom)},
             {backwards(right, thickness, left), top, right, bottom},
             {left, backwards(bottom, thickness, top), right, bottom}}};
}

}  // namespace mobrel
