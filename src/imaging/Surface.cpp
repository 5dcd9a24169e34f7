// SPDX-License-Identifier: MIT
#include "imaging/Surface.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/base/Numbers.hpp"
#include "platform/drawing/rearrange_vectors.hpp"
#include "platform/screen/Desktop.hpp"

namespace mobrel {

namespace {

constexpr int kPixelBytes = 4;

using kernels::kTileSide;
using kernels::PixelLines;

/// Writes the columns of a tile of rows x columns pixels as lines.
void transpose(const PixelLines<const std::uint8_t>& from, const PixelLines<std::uint8_t>& to, int rows,
               int columns) {
    const bool isFull = rows == kTileSide && columns == kTileSide;
    if (isFull && kernels::transposeTile(from, to)) return;
    for (int x = 0; x < columns; ++x) {
        std::uint8_t* out = to.line(x);
        for (int y = 0; y < rows; ++y) {
            std::memcpy(out + y * kPixelBytes, from.line(y) + x * kPixelBytes, kPixelBytes);
        }
    }
}

/// Turns the tile of the old picture that begins at memory row `row` and column `column`. Picture position
/// (x, y) goes to (y, Width - 1 - x). Told by memory rows, row a and column b: in a bottom-up surface to
/// row b, column Height - 1 - a; in a top-down one to row Width - 1 - b, column a.
template <RowOrder Order>
void turnTile(PixelBuffer& turned, const PixelBuffer& old, int row, int column) {
    constexpr bool kBottomUp = Order == RowOrder::BottomUp;
    const int rows = std::min(kTileSide, old.height() - row);
    const int columns = std::min(kTileSide, old.width() - column);
    const auto oldStride = static_cast<std::ptrdiff_t>(old.bytesPerRow());
    const auto newStride = static_cast<std::ptrdiff_t>(turned.bytesPerRow());
    const int newColumn = kBottomUp ? old.height() - row - rows : row;
    const int newRow = kBottomUp ? column : old.width() - 1 - column;
    transpose(
        {old.row(kBottomUp ? row + rows - 1 : row) + std::ptrdiff_t{column} * kPixelBytes,
         kBottomUp ? -oldStride : oldStride},
        {turned.row(newRow) + std::ptrdiff_t{newColumn} * kPixelBytes, kBottomUp ? newStride : -newStride},
        rows, columns);
}

}  // namespace

template <RowOrder Order>
bool Surface<Order>::Create(int NewWidth, int NewHeight, Color BackColor) {
    Destroy();
    m_width = NewWidth;
    m_height = NewHeight;
    auto section = PixelBuffer::create(NewWidth, NewHeight);
    if (!section || !adopt(std::move(*section))) return false;
    if (BackColor != 0) m_deviceContext->FillRect({0, 0, m_width, m_height}, BackColor);
    return true;
}

template <RowOrder Order>
int Surface<Order>::CreateFromStdPicture(std::unique_ptr<StdPicture> Picture, cDIBPal& Pal,
                                         cDIBDither* Dither) requires(Order == RowOrder::BottomUp) {
    if (!Picture || Picture->objectType != ObjectType::Bitmap) return 0;
    const int depth = Picture->bitsPixel;
    if (!adopt(std::move(Picture->pixels))) return 0;
    if (depth >= 9) return 24;

    const auto& table = Picture->colorTable;
    std::copy(table.begin(), table.end(), Pal.InitializePalette(static_cast<int>(table.size())));
    if (Dither == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const auto& indices = Picture->indices;
    std::copy(indices.begin(), indices.end(), Dither->InitializePalID(m_width, m_height, depth));
    return depth;
}

template <RowOrder Order>
bool Surface<Order>::CreateFromStdPicture(std::unique_ptr<StdPicture> Picture) requires(Order ==
                                                                                        RowOrder::TopDown) {
    if (!Picture || Picture->objectType != ObjectType::Bitmap) return false;
    if (!adopt(std::move(Picture->pixels))) return false;
    // The picture's rows came bottom-up.
    m_deviceContext->StretchBlt(0, m_height - 1, m_width, -m_height, *m_deviceContext, 0, 0, m_width,
                                m_height);
    return true;
}

template <RowOrder Order>
void Surface<Order>::LoadBlt(const DeviceContext& hSrcDC, int x, int y) {
    if (m_deviceContext) m_deviceContext->BitBlt(0, 0, m_width, m_height, hSrcDC, x, y);
}

template <RowOrder Order>
std::optional<PixelBuffer> Surface<Order>::part(const Rect& rect) const noexcept {
    const std::int64_t width = std::int64_t{rect.right} - rect.left;
    const std::int64_t height = std::int64_t{rect.bottom} - rect.top;
    if (!m_deviceContext || !PixelBuffer::isValidSize(width, height)) return std::nullopt;
    auto copy = PixelBuffer::create(static_cast<int>(width), static_cast<int>(height));
    if (!copy) return std::nullopt;
    DeviceContext target(copy->bits(), copy->width(), copy->height(), Order);
    target.BitBlt(0, 0, copy->width(), copy->height(), *m_deviceContext, rect.left, rect.top);
    return copy;
}

template <RowOrder Order>
void Surface<Order>::LoadDIBBlt(const Surface& DIB) {
    if (!m_deviceContext) return;
    DIB.Stretch(*m_deviceContext, 0, 0, m_width, m_height, 0, 0, DIB.m_width, DIB.m_height,
                StretchMode::ColorOnColor);
}

template <RowOrder Order>
void Surface<Order>::Cls(Color BackColor) requires(Order == RowOrder::TopDown) {
    if (m_deviceContext) m_deviceContext->FillRect({0, 0, m_width, m_height}, BackColor);
}

template <RowOrder Order>
void Surface<Order>::Paint(StretchTarget& hDstDC, int x, int y, int ScaleFactor) const {
    if (!m_deviceContext) return;
    hDstDC.StretchBlt(x, y, wrapMul(m_width, ScaleFactor), wrapMul(m_height, ScaleFactor), *m_deviceContext,
                      0, 0, m_width, m_height);
}

template <RowOrder Order>
void Surface<Order>::Stretch(StretchTarget& hDstDC, int x, int y, int nWidth, int nHeight, int xSrc, int ySrc,
                             int nSrcWidth, int nSrcHeight, StretchMode StretchColorMode) const {
    if (!m_deviceContext) return;
    const StretchMode earlierMode = hDstDC.GetStretchBltMode();
    hDstDC.SetStretchBltMode(StretchColorMode);
    hDstDC.StretchBlt(x, y, nWidth, nHeight, *m_deviceContext, xSrc, ySrc, nSrcWidth, nSrcHeight);
    hDstDC.SetStretchBltMode(earlierMode);
}

template <RowOrder Order>
void Surface<Order>::Destroy() noexcept {
    m_deviceContext.reset();
    m_section = PixelBuffer();
}

template <RowOrder Order>
void Surface<Order>::Orientation(bool Rotate90, bool FlipH, bool FlipV) {
    if (!m_deviceContext) return;
    const bool leftToRight = Rotate90 ? FlipV : FlipH;
    const bool topToBottom = Rotate90 ? FlipH : FlipV;
    DeviceContext& target = *m_deviceContext;
    if (leftToRight) {
        target.StretchBlt(m_width - 1, 0, -m_width, m_height, target, 0, 0, m_width, m_height);
    }
    if (topToBottom) {
        target.StretchBlt(0, m_height - 1, m_width, -m_height, target, 0, 0, m_width, m_height);
    }
    if (Rotate90) turn();
    ProgressEnd.raise();
}

/// The old pixels wait aside, in place of a copy, while the surface is made anew. Where that fails it is
/// left empty: there is no way back to the picture. A block of rows is turned before its events are raised.
template <RowOrder Order>
void Surface<Order>::turn() {
    const PixelBuffer old = std::exchange(m_section, PixelBuffer());
    if (!Create(old.height(), old.width(), 0)) return;
    for (int first = 0; first < old.height(); first += kTileSide) {
        for (int column = 0; column < old.width(); column += kTileSide) {
            turnTile<Order>(m_section, old, first, column);
        }
        const int end = std::min(first + kTileSide, old.height());
        for (int a = first; a < end; ++a) Progress.raise(a);
    }
}

template <RowOrder Order>
void Surface<Order>::CopyToClipboard(Clipboard& clipboard) const {
    if (m_deviceContext) clipboard.copyPicture(view());
}

template <RowOrder Order>
PictureView Surface<Order>::view() const noexcept {
    const std::ptrdiff_t stride = BytesPerScanLine();
    if (Order == RowOrder::TopDown) return {m_section.bits(), stride, m_width, m_height};
    return {m_section.row(m_height - 1), -stride, m_width, m_height};
}

template <RowOrder Order>
BestFitInfo Surface<Order>::GetBestFitInfo(int DstW, int DstH, bool StretchFit) const {
    BestFitInfo fit;
    if (m_height <= DstH && m_width <= DstW && !StretchFit) {
        fit.bfW = m_width;
        fit.bfH = m_height;
    } else {
        if (m_width == 0 || m_height == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
        const auto sx = static_cast<float>(static_cast<double>(DstW) / m_width);
        const auto sy = static_cast<float>(static_cast<double>(DstH) / m_height);
        if (sx < sy) {
            fit.bfW = DstW;
            fit.bfH = roundInt(static_cast<double>(sx) * m_height);
        } else {
            fit.bfH = DstH;
            fit.bfW = roundInt(static_cast<double>(sy) * m_width);
        }
    }
    fit.bfx = div(DstW - fit.bfW, 2);
    fit.bfy = div(DstH - fit.bfH, 2);
    return fit;
}

template <RowOrder Order>
bool Surface<Order>::adopt(PixelBuffer section) noexcept {
    Destroy();
    if (section.empty()) return false;
    m_section = std::move(section);
    m_width = m_section.width();
    m_height = m_section.height();
    m_deviceContext.emplace(m_section.bits(), m_width, m_height, Order);
    return true;
}

template class Surface<RowOrder::BottomUp>;
template class Surface<RowOrder::TopDown>;

}  // namespace mobrel
