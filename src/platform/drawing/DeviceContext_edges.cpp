// SPDX-License-Identifier: MIT
// Borders, focus rectangles and size grips.
#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/drawing/ContextPixels.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

namespace {

/// One of the two borders that a ring can have.
struct Border {
    Edge edge;
    SystemColor leftTop;
    SystemColor rightBottom;
};
using Ring = std::array<Border, 2>;

constexpr Ring kOuterRing = {{{Edge::RaisedOuter, SystemColor::Light3D, SystemColor::DarkShadow3D},
                              {Edge::SunkenOuter, SystemColor::ButtonShadow, SystemColor::ButtonHighlight}}};
constexpr Ring kInnerRing = {{{Edge::RaisedInner, SystemColor::ButtonHighlight, SystemColor::ButtonShadow},
                              {Edge::SunkenInner, SystemColor::DarkShadow3D, SystemColor::Light3D}}};

bool hasBorder(Edge edge, const Border& border) {
    return (static_cast<unsigned>(edge) & static_cast<unsigned>(border.edge)) != 0;
}

void drawRing(DeviceContext& target, const Rect& rect, const Border& border, int thickness) {
    const Color leftTop = GetSysColor(border.leftTop);
    const Color rightBottom = GetSysColor(border.rightBottom);
    const auto [left, top, right, bottom] = sidesOf(rect, thickness);
    target.FillRect(left, leftTop);
    target.FillRect(top, leftTop);
    target.FillRect(right, rightBottom);
    target.FillRect(bottom, rightBottom);
}

/// Squares along one side of an outline, told from the corner where the side begins.
struct DotRow {
    int origin;
    int step;            // 1 towards larger coordinates, else -1
    int dot;             // the side of a square
    std::int64_t first;  // the number of the first one

    bool isInverted(int place) const {
        const std::int64_t distance = (std::int64_t{place} - origin) * step;
        return (first + distance / dot) % 2 == 0;
    }
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
    for (const Ring& ring : {kOuterRing, kInnerRing}) {
        const auto* border =
            std::ranges::find_if(ring, [edge](const Border& b) { return hasBorder(edge, b); });
        if (border == ring.end() || left.isEmpty()) continue;
        drawRing(*this, left, *border, thickness);
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
    const DotRow onTop{right - 1, -1, thickness, 0};
    const DotRow onLeft{top, 1, thickness, across};
    const DotRow onBottom{left, 1, thickness, across + down};
    const DotRow onRight{bottom - 1, -1, thickness, 2 * across + down};
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
