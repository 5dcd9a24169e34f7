// SPDX-License-Identifier: MIT
// A block of pixels that is plain memory and a drawing target at once.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/base/Event.hpp"
#include "platform/base/Numbers.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/pictures/PictureView.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

class cDIBDither;
class cDIBPal;
class Clipboard;

/// Where a picture lies when it is fitted into a rectangle: place and size.
struct BestFitInfo {
    int bfx = 0;
    int bfy = 0;
    int bfW = 0;
    int bfH = 0;

    bool operator==(const BestFitInfo&) const = default;
};

/// The two surfaces of the system, which differ in the order of their rows: cDIB and cDIB32.
///
/// A pixel is blue, green, red, unused; byte 3 is 0 and means nothing. Rows are width x 4 bytes, no
/// padding. A surface is empty or live; on an empty one every operation on pixels does nothing, and
/// Width and Height go on telling the last size. Pointers that a surface lends (hDIB, hDIBDC,
/// DIBitsPtr) are dead after anything that makes it anew: Create, CreateFromStdPicture, adopt, Destroy,
/// and Orientation with Rotate90.
template <RowOrder Order>
class Surface {
 public:
    Surface() = default;
    Surface(const Surface&) = delete;  // a picture is handed on by reference only
    Surface& operator=(const Surface&) = delete;

    /// Raised by Orientation while it turns, with the number of each finished row.
    Event<std::int32_t> Progress;
    /// Raised at the end of Orientation on a live surface.
    Event<> ProgressEnd;

    /// Makes the surface anew, filled with BackColor. False, and empty, when a side is below 1, when
    /// the pixels would take 2^31 bytes or more, or when memory is short.
    bool Create(int NewWidth, int NewHeight, Color BackColor);

    /// Makes the surface from a picture object, whose pixels it takes over. The result is the depth
    /// that the document counts as: the source's own below 9, else 24; 0, with the surface as it was,
    /// when there is no picture or it is no bitmap. A palette picture fills Pal with its colour table
    /// and Dither with its packed indices; error 91 when there is no Dither then.
    int CreateFromStdPicture(std::unique_ptr<StdPicture> Picture, cDIBPal& Pal,
                             cDIBDither* Dither) requires(Order == RowOrder::BottomUp);
    /// The same without palettes; true when the picture was taken.
    bool CreateFromStdPicture(std::unique_ptr<StdPicture> Picture) requires(Order == RowOrder::TopDown);

    /// Takes the pixels as its own, in the surface's row order. False, and empty, when there are none.
    bool adopt(PixelBuffer section) noexcept;

    /// Copies the block of the surface's size at (x, y) of another target to (0, 0).
    void LoadBlt(const DeviceContext& hSrcDC, int x = 0, int y = 0);
    /// A copy of a rectangle of the picture, right and bottom outside of it, as adopt takes it; black where
    /// it lies beside the picture. Nothing when the surface is empty, no surface can have that size, or
    /// memory is short.
    std::optional<PixelBuffer> part(const Rect& rect) const noexcept;
    /// Fits the whole of another surface to this one's size, nearest neighbour. Nothing when either
    /// is empty.
    void LoadDIBBlt(const Surface& DIB);
    /// Fills the whole surface.
    void Cls(Color BackColor) requires(Order == RowOrder::TopDown);

    /// The drawing target over the pixels; null when the surface is empty.
    DeviceContext* hDIBDC() noexcept { return m_deviceContext ? &*m_deviceContext : nullptr; }
    const DeviceContext* hDIBDC() const noexcept { return m_deviceContext ? &*m_deviceContext : nullptr; }
    /// Tells a live surface from an empty one, for which it is null.
    const PixelBuffer* hDIB() const noexcept { return m_section.empty() ? nullptr : &m_section; }
    /// The first byte of memory row 0; null when the surface is empty.
    std::uint8_t* DIBitsPtr() noexcept { return m_section.bits(); }
    const std::uint8_t* DIBitsPtr() const noexcept { return m_section.bits(); }

    /// Bytes of all pixels, as the picture's header tells them: 0 for rows that go top-down.
    int Size() const noexcept {
        return Order == RowOrder::BottomUp ? wrapMul(BytesPerScanLine(), m_height) : 0;
    }
    int BytesPerScanLine() const noexcept { return wrapMul(m_width, 4); }
    int Width() const noexcept { return m_width; }
    int Height() const noexcept { return m_height; }

    /// Draws the whole surface at (x, y), enlarged by a whole factor, in the target's stretch mode.
    void Paint(StretchTarget& hDstDC, int x, int y, int ScaleFactor) const;
    /// Draws a part of the surface fitted to a rectangle of the target, whose own stretch mode is put
    /// back afterwards.
    void Stretch(StretchTarget& hDstDC, int x, int y, int nWidth, int nHeight, int xSrc, int ySrc,
                 int nSrcWidth, int nSrcHeight, StretchMode StretchColorMode) const;

    /// Frees the pixels. Width and Height stay.
    void Destroy() noexcept;

    /// Mirrors, then turns by 90 degrees counter-clockwise. With Rotate90 the mirrors are asked for in
    /// the frame of the turned picture: FlipH is done as a mirror top to bottom before the turn, FlipV
    /// as one left to right. A turn that finds no memory for the turned picture leaves the surface empty,
    /// of the turned size and without Progress; ProgressEnd comes all the same.
    void Orientation(bool Rotate90, bool FlipH, bool FlipV);

    /// Puts the picture on the clipboard, in true colour. Nothing when the surface is empty.
    void CopyToClipboard(Clipboard& clipboard) const;

    /// The lines of the picture from the top. For a live surface.
    PictureView view() const noexcept;

    /// The largest place in DstW x DstH that keeps the picture's proportions, centred. A picture that
    /// fits is only enlarged with StretchFit. Error 11 for a StretchFit of a surface never made.
    BestFitInfo GetBestFitInfo(int DstW, int DstH, bool StretchFit = false) const;

 private:
    void turn();

    int m_width = 0;
    int m_height = 0;
    PixelBuffer m_section;
    std::optional<DeviceContext> m_deviceContext;
};

extern template class Surface<RowOrder::BottomUp>;
extern template class Surface<RowOrder::TopDown>;

}  // namespace mobrel
