// SPDX-License-Identifier: MIT
// Where the picture stands in the control, and what part of it is drawn.
#include "canvas/ucCanvas.hpp"

namespace mobrel {

void ucCanvas::Resize() {
    if (hasPicture()) {
        placeView();
        m_horizontal.keepPlace();
        m_vertical.keepPlace();
        showLayout();
    } else {
        m_iCanvas = {};
        PaintBorders();
        showAll();
        if (host() != nullptr) host()->accessibleChanged();
    }
    refreshMouseIcon();
}

void ucCanvas::placeView() {
    if (m_fitMode) {
        placeFittedView();
    } else {
        placeScrolledView();
    }
}

/// A picture smaller than the control stands centred.
void ucCanvas::placeScrolledView() {
    const int viewWidth = m_horizontal.fit(DIB.Width(), m_zoom, width());
    const int viewHeight = m_vertical.fit(DIB.Height(), m_zoom, height());
    m_iCanvas = {(width() - viewWidth) / 2, (height() - viewHeight) / 2, viewWidth, viewHeight};
    m_frame.setScaleFactor(static_cast<float>(m_zoom));
}

/// kept: the scroll maxima stay, and so the places for the way back.
void ucCanvas::placeFittedView() {
    const BestFitInfo fit = DIB.GetBestFitInfo(width(), height());
    m_iCanvas = {fit.bfx, fit.bfy, fit.bfW, fit.bfH};
    const bool isWide = fit.bfW > fit.bfH;
    m_frame.setScaleFactor(static_cast<float>(isWide ? static_cast<double>(fit.bfW) / DIB.Width()
                                                     : static_cast<double>(fit.bfH) / DIB.Height()));
}

void ucCanvas::showLayout() {
    PaintBorders();
    paint();
    showAll();
    if (host() != nullptr) host()->accessibleChanged();
    Resized.raise();
}

void ucCanvas::PaintBorders() {
    fillMargin(GetSysColor(SystemColor::ApplicationWorkspace));
}

void ucCanvas::fillMargin(Color color) {
    auto target = image();
    if (!target) return;
    const auto [left, top, viewWidth, viewHeight] = m_iCanvas;
    const int bottom = top + viewHeight;
    target->FillRect({0, 0, width(), top}, color);
    target->FillRect({0, top, left, bottom}, color);
    target->FillRect({left + viewWidth, top, width(), bottom}, color);
    target->FillRect({0, bottom, width(), height()}, color);
}

ucCanvas::Point ucCanvas::rounded(const ViewPlace& place) {
    return {roundLimited(place.x), roundLimited(place.y)};
}

ucCanvas::Point ucCanvas::toImage(const Point& view) const {
    const double scale = m_frame.ScaleFactor();
    const auto toPixel = [scale](std::int64_t place) {
        return limited(std::floor(static_cast<double>(place) / scale));
    };
    return {toPixel(std::int64_t{view.x} + offsetX()), toPixel(std::int64_t{view.y} + offsetY())};
}

Rect ucCanvas::FrameToView(const Rect& scaledFrame) const {
    return moved(scaledFrame, -std::int64_t{offsetX()}, -std::int64_t{offsetY()});
}

std::optional<DeviceContext> ucCanvas::viewTarget() {
    auto whole = image();
    if (!whole) return std::nullopt;
    const auto [left, top, viewWidth, viewHeight] = m_iCanvas;
    return whole->part({left, top, left + viewWidth, top + viewHeight});
}

PaintSpan ucCanvas::paintSpan(const ScrollAxis& axis, int view, int side) const {
    if (!m_fitMode && axis.maximum() != 0) return axis.window(view, m_zoom);
    return {0, view, 0, side};
}

void ucCanvas::paintPicture(DeviceContext& target) {
    const PaintSpan columns = paintSpan(m_horizontal, m_iCanvas.width, DIB.Width());
    const PaintSpan rows = paintSpan(m_vertical, m_iCanvas.height, DIB.Height());
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

void ucCanvas::showInView(const Rect& rect) {
    showChange(moved(rect, m_iCanvas.left, m_iCanvas.top));
}

}  // namespace mobrel
