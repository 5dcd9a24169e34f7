// SPDX-License-Identifier: MIT
// Fills, frames, gradients and rounded rectangles.
#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/drawing/ContextPixels.hpp"
#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

namespace {

/// Writes the first line of a rectangle that lies on the target, and copies it to the others.
template <typename PixelAtColumn>
void fillAlikeLines(DeviceContext& target, const Rect& rect, PixelAtColumn&& pixelAtColumn) {
    if (rect.isEmpty()) return;
    std::uint8_t* const first = target.line(rect.top);
    for (int x = rect.left; x < rect.right; ++x) writePixel(pixelAt(first, x), pixelAtColumn(x));
    const std::size_t bytes = static_cast<std::size_t>(rect.width()) * kPixelBytes;
    for (int y = rect.top + 1; y < rect.bottom; ++y) {
        std::memcpy(pixelAt(target.line(y), rect.left), pixelAt(first, rect.left), bytes);
    }
}

void fillPattern(DeviceContext& target, const Rect& rect, const PatternBrush& brush, Color text,
                 Color background) {
    forEachPixel(target, rect, [&](std::uint8_t* pixel, int x, int y) {
        const bool isSet = (brush.rows[static_cast<std::size_t>(y % 8)] & 0x80 >> x % 8) != 0;
        writePixel(pixel, pixelOf(isSet ? background : text));
    });
}

template <typename Combine>
void combinePixels(DeviceContext& target, const Rect& rect, Combine&& combine) {
    forEachPixel(target, rect,
                 [&](std::uint8_t* pixel, int, int) { writePixel(pixel, combine(readPixel(pixel))); });
}

/// The pixel of step i of n between two pixels.
std::uint32_t fadedPixel(std::uint32_t from, std::uint32_t to, std::int64_t i, std::int64_t n) {
    std::uint32_t faded = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::int64_t a = from >> shift & 0xFF;
        const std::int64_t b = to >> shift & 0xFF;
        faded |= static_cast<std::uint32_t>((a * (n - i) + b * i) / n) << shift;
    }
    return faded;
}

/// A rectangle with round corners, of at least 3 by 3 pixels each.
class RoundedRectangle {
 public:
    RoundedRectangle(DeviceContext& target, const Rect& rect, int cornerWidth, int cornerHeight, Color pen,
                     Color brush)
        : m_target(target),
          m_rect(rect),
          m_width(cornerWidth),
          m_height(cornerHeight),
          m_pen(pen),
          m_brush(brush) {}

    void draw() {
        drawStraightSides();
        drawArcs();
        drawEnds();
    }

 private:
    /// The lines that no corner reaches.
    void drawStraightSides() {
        const int corner = (m_height + 1) / 2;
        const auto [left, top, right, bottom] = m_rect;
        fill({left, top + corner, right, bottom - corner}, m_brush);
        fill({left, top + corner, left + 1, bottom - corner}, m_pen);
        fill({right - 1, top + corner, right, bottom - corner}, m_pen);
    }

    /// Walks a quarter of the ellipse from its side to its end in whole numbers. `error` tells on which side
    /// of the ellipse the next pixel lies.
    void drawArcs() {
        const std::int64_t a = m_width - 1;
        const std::int64_t b = m_height - 1;
        const std::int64_t stepX = 8 * b * b;
        const std::int64_t stepY = 8 * a * a;
        std::int64_t dx = 4 * b * b * (1 - a);
        std::int64_t dy = 4 * a * a * (1 + b % 2);
        std::int64_t error = dx + dy + a * a * (b % 2);
        int y = m_height / 2;
        for (int x = m_width - 1; x >= m_width / 2;) {
            if (y < m_height) drawPoint(m_width - 1 - x, m_height - 1 - y);
            const std::int64_t twice = 2 * error;
            if (twice >= dx) {
                --x;
                dx += stepX;
                error += dx;
            }
            if (twice <= dy) {
                ++y;
                dy += stepY;
                error += dy;
            }
        }
    }

    /// The top and bottom between the corners, and the tips of slim corners, which end in a straight line.
    void drawEnds() {
        const int corner = (m_width - 1) / 2;
        const auto [left, top, right, bottom] = m_rect;
        const int lines = std::max(m_row, 1);
        fill({left + corner, top, right - corner, top + lines}, m_pen);
        fill({left + corner, bottom - lines, right - corner, bottom}, m_pen);
    }

    /// A pixel of the outline in all four corners. The first one of a line is its outermost, and fills what
    /// is inside.
    void drawPoint(int column, int row) {
        const auto [left, top, right, bottom] = m_rect;
        const int x[] = {left + column, right - 1 - column};
        const int y[] = {top + row, bottom - 1 - row};
        if (std::exchange(m_row, row) != row) {
            for (const int line : y) fill({x[0], line, x[1] + 1, line + 1}, m_brush);
        }
        for (const int line : y) {
            for (const int place : x) fill({place, line, place + 1, line + 1}, m_pen);
        }
    }

    void fill(const Rect& rect, Color color) { m_target.FillRect(rect, color); }

    DeviceContext& m_target;
    Rect m_rect;
    int m_width;
    int m_height;
    Color m_pen;
    Color m_brush;
    int m_row = -1;  // of the last point
};

/// A corner's diameter, cut to the side it stands on. Larger ones than any view would leave 64 bits.
int cornerSize(int wanted, int from, int to) {
    constexpr std::int64_t kLargest = 0x7FFF;
    return static_cast<int>(std::min({std::int64_t{wanted}, std::int64_t{to} - from, kLargest}));
}

void fillRounded(DeviceContext& target, const Rect& rect, int cornerWidth, int cornerHeight, Color pen,
                 Color brush) {
    const int width = cornerSize(cornerWidth, rect.left, rect.right);
    const int height = cornerSize(cornerHeight, rect.top, rect.bottom);
    if (width > 2 && height > 2) {
        RoundedRectangle(target, rect, width, height, pen, brush).draw();
    } else {
        target.FillRect(rect, brush);
        target.FrameRect(rect, pen);
    }
}

}  // namespace

std::int32_t DeviceContext::GetPixel(int x, int y) const noexcept {
    if (x < 0 || y < 0 || x >= m_width || y >= m_height) return -1;
    return static_cast<std::int32_t>(colorOf(readPixel(pixelAt(line(y), x))));
}

void DeviceContext::FillRect(const Rect& rect, Color color) {
    const std::uint32_t pixel = pixelOf(color);
    fillAlikeLines(*this, intersection(rect, bounds()), [pixel](int) { return pixel; });
}

void DeviceContext::fillAround(const Rect& rect, Color color) {
    FillRect({0, 0, m_width, rect.top}, color);
    FillRect({0, rect.top, rect.left, rect.bottom}, color);
    FillRect({rect.right, rect.top, m_width, rect.bottom}, color);
    FillRect({0, rect.bottom, m_width, m_height}, color);
}

void DeviceContext::FrameRect(const Rect& rect, Color color) {
    for (const Rect& side : sidesOf(rect, 1)) FillRect(side, color);
}

void DeviceContext::FrameRect(const Rect& rect, const PatternBrush& brush, Color text, Color background) {
    for (const Rect& side : sidesOf(rect, 1)) fillPattern(*this, side, brush, text, background);
}

void DeviceContext::PatBlt(const Rect& rect, Color color, PatternOperation operation) {
    const std::uint32_t pattern = pixelOf(color);
    switch (operation) {
        case PatternOperation::PatAnd:
            return combinePixels(*this, rect, [pattern](std::uint32_t pixel) { return pattern & pixel; });
        case PatternOperation::PatCopy:
            return combinePixels(*this, rect, [pattern](std::uint32_t) { return pattern; });
        case PatternOperation::PatInvert:
            return combinePixels(*this, rect, [pattern](std::uint32_t pixel) { return pattern ^ pixel; });
    }
}

void DeviceContext::GradientFill(const Rect& rect, Color from, Color to, GradientDirection direction) {
    const Rect inside = intersection(rect, bounds());
    const std::int64_t width = std::int64_t{rect.right} - rect.left;
    const std::int64_t height = std::int64_t{rect.bottom} - rect.top;
    if (direction == GradientDirection::Horizontal) {
        fillAlikeLines(*this, inside, [&](int x) {
            return fadedPixel(pixelOf(from), pixelOf(to), std::int64_t{x} - rect.left, width);
        });
        return;
    }
    for (int y = inside.top; y < inside.bottom; ++y) {
        FillRect({inside.left, y, inside.right, y + 1},
                 fadedPixel(from, to, std::int64_t{y} - rect.top, height));
    }
}

void DeviceContext::RoundRect(const Rect& rect, int cornerWidth, int cornerHeight, Color pen, Color brush,
                              int thickness) {
    const auto isLine = [](int from, int to) { return std::int64_t{to} - from < 2; };
    if (isLine(rect.left, rect.right) || isLine(rect.top, rect.bottom)) return;
    if (thickness <= 1) return fillRounded(*this, rect, cornerWidth, cornerHeight, pen, brush);
    const int narrower = 2 * thickness;
    fillRounded(*this, rect, cornerWidth, cornerHeight, pen, pen);
    fillRounded(*this, shrunk(rect, thickness), cornerWidth - narrower, cornerHeight - narrower, brush,
                brush);
}

}  // namespace mobrel
