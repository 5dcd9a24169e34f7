// SPDX-License-Identifier: MIT
#include "imaging/Surface.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/Numbers.hpp"

namespace mobrel {

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

/// Picture position (x, y) goes to (y, Width - 1 - x). Told by memory rows, row a and column b: in a
/// bottom-up surface to row b, column Height - 1 - a; in a top-down one to row Width - 1 - b, column a.
template <RowOrder Order>
void Surface<Order>::turn() {
    const int oldWidth = m_width;
    const int oldHeight = m_height;
    auto turned = PixelBuffer::create(oldHeight, oldWidth);
    if (!turned) return;
    const PixelBuffer old = std::exchange(m_section, PixelBuffer());
    adopt(std::move(*turned));

    for (int a = 0; a < oldHeight; ++a) {
        const std::uint8_t* from = old.row(a);
        for (int b = 0; b < oldWidth; ++b, from += 4) {
            const int row = Order == RowOrder::BottomUp ? b : oldWidth - 1 - b;
            const int column = Order == RowOrder::BottomUp ? oldHeight - 1 - a : a;
            std::memcpy(m_section.row(row) + std::ptrdiff_t{column} * 4, from, 4);
        }
        Progress.raise(a);
    }
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

/// Takes the pixels as its own. False, and empty, when there are none.
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
