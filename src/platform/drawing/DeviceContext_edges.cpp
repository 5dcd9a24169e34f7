// SPDX-License-Identifier: MIT
// Borders, focus rectangles and size grips.
#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/drawing/ContextPixels.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

namespace {

struct RingColors {
    SystemColor leftTop;
    SystemColor rightBottom;
};

bool hasBorder(Edge edge, Edge border) {
    return (static_cast<unsigned>(edge) & static_cast<unsigned>(border)) != 0;
}

std::optional<RingColors> outerRing(Edge edge) {
    if (hasBorder(edge, Edge::RaisedOuter))
        return RingColors{SystemColor::Light3D, SystemColor::DarkShadow3D};
    if (hasBorder(edge, Edge::SunkenOuter)) {
        return RingColors{SystemColor::ButtonShadow, SystemColor::ButtonHighlight};
    }
    return std::nullopt;
}

std::optional<RingColors> innerRing(Edge edge) {
    if (hasBorder(edge, Edge::RaisedInner)) {
        return RingColors{SystemColor::ButtonHighlight, SystemColor::ButtonShadow};
    }
    if (hasBorder(edge, Edge::SunkenInner))
        return RingColors{SystemColor::DarkShadow3D, SystemColor::Light3D};
    return std::nullopt;
}

void drawRing(DeviceContext& target, const Rect& rect, const RingColors& colors, int thickness) {
    const Color leftTop = GetSysColor(colors.leftTop);
    const Color rightBottom = GetSysColor(colors.rightBottom);
    const auto [left, top, right, bottom] = sidesOf(rect, thickness);
    target.FillRect(left, leftTop);
    target.FillRect(top, leftTop);
    target.FillRect(right, rightBottom);
    target.FillRect(bottom, rightBottom);
}

/// Squares along one side of an outline, told from the corner where the side begins.
class DotRow {
 public:
    /// `first` is the number of the first dot; `step` is 1 towards larger coordinates, else -1.
    DotRow(int origin, int step, int dot, std::int64_t first)
        : m_origin(origin), m_step(step), m_dot(dot), m_first(first) {}

    bool isInverted(int place) const {
        const std::int64_t distance = (std::int64_t{place} - m_origin) * m_step;
        return (m_first + distance / m_dot) % 2 == 0;
    }

 private:
    int m_origin;
    int m_step;
    int m_dot;
    std::int64_t m_first;
};

/// Inverts the pixels of a rectangle of which isInverted(x, y) says so.
template <typename IsInverted>
void invertPixels(DeviceContext& target, const Rect& rect, IsInverted&& isInverted) {
    forEachPixel(target, rect, [&](std::uint8_t* pixel, int x, int y) {
        if (isInverted(x, y)) writePixel(pixel, readPixel(pixel) ^ 0x00FFFFFF);
    });
}

/// How many dots a side has that ends before the next corner.
std::int64_t dotsOf(int from, int to, int dot) {
    const std::int64_t length = std::max<std::int64_t>(std::int64_t{to} - from - dot, 0);
    return (length + dot - 1) / dot;
}

}  // namespace

void DeviceContext::DrawEdge(const Rect& rect, Edge edge, int thickness) {
    thickness = std::max(thickness, 1);
    Rect left = rect;
    for (const auto& ring : {outerRing(edge), innerRing(edge)}) {
        if (!ring || left.isEmpty()) continue;
        drawRing(*this, left, *ring, thickness);
        left = shrunk(left, thickness);
    }
}

void DeviceContext::DrawFocusRect(const Rect& rect, int thickness) {
    thickness = std::max(thickness, 1);
    const auto [left, right] = std::minmax(rect.left, rect.right);
    const auto [top, bottom] = std::minmax(rect.top, rect.bottom);
    const Rect ordered{left, top, right, bottom};
    if (ordered.isEmpty()) return;
    const std::int64_t across = dotsOf(left, right, thickness);
    const std::int64_t down = dotsOf(top, bottom, thickness);
    const Rect inner = shrunk(ordered, thickness);
    // Each side begins with a corner and ends before the next one.
    const DotRow onTop(right - 1, -1, thickness, 0);
    const DotRow onLeft(top, 1, thickness, across);
    const DotRow onBottom(left, 1, thickness, across + down);
    const DotRow onRight(bottom - 1, -1, thickness, 2 * across + down);
    auto [leftSide, topSide, rightSide, bottomSide] = sidesOf(ordered, thickness);
    topSide.left = inner.left;
    leftSide.bottom = inner.bottom;
    bottomSide.right = inner.right;
    rightSide.top = inner.top;
    invertPixels(*this, topSide, [&](int x, int) { return onTop.isInverted(x); });
    invertPixels(*this, leftSide, [&](int, int y) { return onLeft.isInverted(y); });
    invertPixels(*this, bottomSide, [&](int x, int) { return onBottom.isInverted(x); });
    invertPixels(*this, rightSide, [&](int, int y) { return onRight.isInverted(y); });
}

void DeviceContext::DrawSizeGrip(const Rect& rect, int thickness) {
    constexpr int kCorner = 2;  // diagonals of the face outside the outermost band
    constexpr int kPeriod = 4;  // shadow 2, highlight 1, face 1
    constexpr int kBands = 3;
    thickness = std::max(thickness, 1);
    FillRect(rect, GetSysColor(SystemColor::ButtonFace));
    const int reach = (kCorner + kBands * kPeriod) * thickness;
    const Rect corner{backwards(rect.right, reach, rect.left), backwards(rect.bottom, reach, rect.top),
                      rect.right, rect.bottom};
    const std::uint32_t shadow = pixelOf(GetSysColor(SystemColor::ButtonShadow));
    const std::uint32_t highlight = pixelOf(GetSysColor(SystemColor::ButtonHighlight));
    forEachPixel(*this, corner, [&](std::uint8_t* pixel, int x, int y) {
        const int diagonal = (rect.right - 1 - x) / thickness + (rect.bottom - 1 - y) / thickness - kCorner;
        if (diagonal < 0 || diagonal >= kBands * kPeriod || diagonal % kPeriod == 3) return;
        writePixel(pixel, diagonal % kPeriod == 2 ? highlight : shadow);
    });
}

}  // namespace mobrel
