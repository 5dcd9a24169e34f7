// SPDX-License-Identifier: MIT
// A drawing target over memory. Plain arithmetic; needs no display.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/drawing/Rect.hpp"

namespace mobrel {

/// A platform colour value, 0x00BBGGRR: red is the low byte.
using Color = std::uint32_t;

/// The colour of channels from 0 to 255.
constexpr Color rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

/// Which picture line stands first in memory.
enum class RowOrder { TopDown, BottomUp };

/// The platform's stretch modes.
enum class StretchMode : int { BlackOnWhite = 1, WhiteOnBlack = 2, ColorOnColor = 3, Halftone = 4 };

/// An 8 by 8 pattern: row y of a target takes rows[y mod 8], whose highest bit is the pixel at column 0.
struct PatternBrush {
    std::array<std::uint8_t, 8> rows{};
};

/// The borders of DrawEdge, under the platform's numbers.
enum class Edge : unsigned {
    None = 0,
    RaisedOuter = 1,  // BDR_RAISEDOUTER
    SunkenOuter = 2,  // BDR_SUNKENOUTER
    RaisedInner = 4,  // BDR_RAISEDINNER
    Raised = 5,       // EDGE_RAISED
    SunkenInner = 8,  // BDR_SUNKENINNER
    Sunken = 10,      // EDGE_SUNKEN
};

/// The platform's numbers for PatBlt.
enum class PatternOperation : std::uint32_t {
    PatAnd = 0x00A000C9,
    PatCopy = 0x00F00021,
    PatInvert = 0x005A0049,
};

enum class GradientDirection { Horizontal = 0, Vertical = 1 };

class DeviceContext;

/// What a surface can be stretched onto: a device context, a printer's page.
class StretchTarget {
 public:
    virtual ~StretchTarget() = default;

    /// Fits the source rectangle to the destination rectangle. Coordinates count from the top left
    /// of the picture. A negative size runs leftwards or upwards from its origin: destination origin
    /// (W - 1, 0) with width -W mirrors. What falls outside the target is dropped and what has no
    /// source pixel stays untouched; neither shifts the picture. A size of 0 draws nothing.
    virtual void StretchBlt(int x, int y, int width, int height, const DeviceContext& source, int xSource,
                            int ySource, int sourceWidth, int sourceHeight) = 0;

    virtual StretchMode GetStretchBltMode() const = 0;
    virtual void SetStretchBltMode(StretchMode mode) = 0;
};

/// A 32-bit pixel target: a pointer, a size, a row order. It owns nothing; the memory must outlive it. A part
/// of a target is a target, so views draw into their place whatever the row order.
///
/// Lines have a thickness in pixels, so that nothing is blurred on fine displays; one below 1 counts as 1.
class DeviceContext final : public StretchTarget {
 public:
    /// `bits` is width x height pixels of 4 bytes (blue, green, red, unused), rows unpadded.
    DeviceContext(std::uint8_t* bits, int width, int height, RowOrder order) noexcept;

    int width() const noexcept { return m_width; }
    int height() const noexcept { return m_height; }
    Rect bounds() const noexcept { return {0, 0, m_width, m_height}; }

    /// Picture line y, counted from the top, 0 to height - 1.
    std::uint8_t* line(int y) noexcept { return m_topLine + y * m_stride; }
    const std::uint8_t* line(int y) const noexcept { return m_topLine + y * m_stride; }

    /// The colour of a pixel; -1 outside.
    std::int32_t GetPixel(int x, int y) const noexcept;

    /// Copies a block of the source to (x, y), all four bytes of each pixel. Clipped at both
    /// surfaces. A negative size runs leftwards or upwards in both. Source and target may be the
    /// same surface, and the blocks may overlap.
    void BitBlt(int x, int y, int width, int height, const DeviceContext& source, int xSource, int ySource);

    /// Nearest neighbour, by one rule for views, copies and changes of size: destination pixel d of w takes
    /// source pixel ((2d + 1) * s - 1) div (2w), the one under its centre, ties to the lower index; both
    /// axes, enlarging and shrinking, whatever the stretch mode. Source and target may share memory: the
    /// result is that of reading the source first. A move and a mirror of the whole surface work in place;
    /// any other such call copies the block it reads, error 7 when memory is short.
    void StretchBlt(int x, int y, int width, int height, const DeviceContext& source, int xSource,
                    int ySource, int sourceWidth, int sourceHeight) override;

    StretchMode GetStretchBltMode() const noexcept override { return m_stretchMode; }
    void SetStretchBltMode(StretchMode mode) noexcept override { m_stretchMode = mode; }

    /// Fills the rectangle, clipped, with a colour; byte 3 of each pixel becomes 0. An empty or
    /// inverted rectangle fills nothing.
    void FillRect(const Rect& rect, Color color);

    /// Fills all that lies outside the rectangle.
    void fillAround(const Rect& rect, Color color);

    /// Draws the outline of the rectangle, one pixel thick and inside it. An empty or inverted
    /// rectangle draws nothing.
    void FrameRect(const Rect& rect, Color color);
    /// The same in a pattern, whose corner lies at (0, 0) of this target: a set bit is `background`, a clear
    /// one `text`.
    void FrameRect(const Rect& rect, const PatternBrush& brush, Color text, Color background);

    /// Inverts every second pixel of the rectangle's outline, `thickness` pixels wide, so that a second call
    /// brings the picture back. The dots are squares of the thickness; the outline is walked from the top
    /// right corner leftwards, down, right and up, wherever the rectangle stands. An inverted rectangle is
    /// put in order first; one without width or height draws nothing.
    void DrawFocusRect(const Rect& rect, int thickness = 1);

    /// Draws the border of a rectangle in the 3-D colours of the system: an outer and an inner ring, each
    /// `thickness` pixels wide, where the edge has them (a sum of two borders has both). The
    /// inside stays. Corners belong to the bottom and right.
    void DrawEdge(const Rect& rect, Edge edge, int thickness = 1);

    /// Fills the rectangle with the button face and draws three diagonal bands of highlight and shadow into
    /// its lower right corner, in steps of `thickness` pixels.
    void DrawSizeGrip(const Rect& rect, int thickness = 1);

    /// Combines the rectangle bit by bit with a colour, whose byte 3 counts as 0.
    void PatBlt(const Rect& rect, Color color, PatternOperation operation);

    /// Fades from `from` to `to`, each a colour, over the rectangle: pixel i of n is
    /// (from (n - i) + to i) div n in each channel. An empty or inverted rectangle fills nothing.
    void GradientFill(const Rect& rect, Color from, Color to, GradientDirection direction);

    /// A rectangle with corners that are quarters of an ellipse of these diameters, cut to the rectangle;
    /// outlined in `pen`, `thickness` pixels wide, filled with `brush`. A rectangle one pixel wide or high
    /// draws nothing.
    void RoundRect(const Rect& rect, int cornerWidth, int cornerHeight, Color pen, Color brush,
                   int thickness = 1);

    /// A target that is the part of this one inside the rectangle, cut to this one; its (0, 0) is the part's
    /// corner.
    DeviceContext part(const Rect& rect) noexcept;

 private:
    DeviceContext(std::uint8_t* topLine, int width, int height, std::ptrdiff_t stride) noexcept
        : m_topLine(topLine), m_width(width), m_height(height), m_stride(stride) {}

    bool isSameSurface(const DeviceContext& other) const noexcept;
    bool sharesMemory(const DeviceContext& other) const noexcept;

    /// The first picture line, and the bytes from each to the next: negative where the bottom one stands
    /// first in memory.
    std::uint8_t* m_topLine;
    int m_width;
    int m_height;
    std::ptrdiff_t m_stride;
    StretchMode m_stretchMode = StretchMode::BlackOnWhite;
};

}  // namespace mobrel
