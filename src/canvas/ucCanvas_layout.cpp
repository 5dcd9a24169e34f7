// SPDX-License-Identifier: MIT
// Where the picture stands in the control, and what part of it is drawn.
#include "canvas/ucCanvas.hpp"

namespace mobrel {

void ucCanvas::Resize() {
    if (hasPicture()) {
        placeView();
    } else {
        m_iCanvas = kNowhere;
    }
    showLayout();
    refreshMouseIcon();
}

void ucCanvas::placeView() {
    if (m_fitMode) {
        placeFittedView();
    } else {
        placeScrolledView();
    }
    m_horizontal.keepPlace();
    m_vertical.keepPlace();
}

/// A picture smaller than the control stands centred.
void ucCanvas::placeScrolledView() {
    const int viewWidth = m_horizontal.fit(DIB.Width(), m_zoom, width());
    const int viewHeight = m_vertical.fit(DIB.Height(), m_zoom, height());
    m_iCanvas = moved({0, 0, viewWidth, viewHeight}, (width() - viewWidth) / 2, (height() - viewHeight) / 2);
    m_frame.setScaleFactor(static_cast<float>(m_zoom));
}

/// kept: the scroll maxima stay, and so the places for the way back.
void ucCanvas::placeFittedView() {
    const BestFitInfo fit = DIB.GetBestFitInfo(width(), height());
    m_iCanvas = moved({0, 0, fit.bfW, fit.bfH}, fit.bfx, fit.bfy);
    const bool isWide = fit.bfW > fit.bfH;
    m_frame.setScaleFactor(static_cast<float>(isWide ? static_cast<double>(fit.bfW) / DIB.Width()
                                                     : static_cast<double>(fit.bfH) / DIB.Height()));
}

void ucCanvas::showLayout() {
    paintAll();
    tellAccessible();
    if (hasPicture()) Resized.raise();
}

void ucCanvas::paintAll() {
    fillMargin(GetSysColor(SystemColor::ApplicationWorkspace));
    paint();
    showAll();
}

void ucCanvas::fillMargin(Color color) {
    if (auto target = image()) target->fillAround(m_iCanvas, color);
}

ucCanvas::Point ucCanvas::rounded(const ViewPlace& place) {
    return {roundClamped(place.x), roundClamped(place.y)};
}

ucCanvas::Point ucCanvas::toImage(const Point& view) const {
    const double scale = m_frame.ScaleFactor();
    const auto toPixel = [scale](std::int64_t place) {
        return clampInt(std::floor(static_cast<double>(place) / scale));
    };
    return {toPixel(std::int64_t{view.x} + offsetX()), toPixel(std::int64_t{view.y} + offsetY())};
}

Rect ucCanvas::FrameToView(const Rect& scaledFrame) const {
    return moved(scaledFrame, -std::int64_t{offsetX()}, -std::int64_t{offsetY()});
}

std::optional<DeviceContext> ucCanvas::viewTarget() {
    auto whole = image();
    if (!whole) return std::nullopt;
    return whole->part(m_iCanvas);
}

PaintSpan ucCanvas::paintSpan(const ScrollAxis& axis, int view, int side) const {
    if (!m_fitMode && axis.maximum() != 0) return axis.window(view, m_zoom);
    return {0, view, 0, side};
}

void ucCanvas::paintPicture(DeviceContext& target) {
    const PaintSpan columns = paintSpan(m_horizontal, m_iCanvas.width(), DIB.Width());
    const PaintSpan rows = paintSpan(m_vertical, m_iCanvas.height(), DIB.Height());
    DIB.Stretch(target, columns.destination, rows.destination, columns.destinationSize, rows.destinationSize,
                columns.source, rows.source, columns.sourceSize, rows.sourceSize, StretchMode::ColorOnColor);
    if (hasRubberBand()) {
        drawRubberBand(target);
    } else {
        paintFrame(target);
    }
}

void ucCanvas::paintFrame(DeviceContext& target) {
    m_frame.PaintToDC(target, -offsetX(), -offsetY());
}

void ucCanvas::scrollTo(std::int32_t x, std::int32_t y) {
    m_horizontal.moveTo(x);
    m_vertical.moveTo(y);
    m_horizontal.publish();
    m_vertical.publish();
}

void ucCanvas::showInView(const Rect& rect) {
    showChange(moved(rect, m_iCanvas.left, m_iCanvas.top));
}

}  // namespace mobrel
