// SPDX-License-Identifier: MIT
// What the canvas tells and is told, and the three places at which a tool can take over from the picture:
// paint, press and move.
#include "canvas/ucCanvas.hpp"

namespace mobrel {

ucCanvas::ucCanvas() {
    DIB.Progress.connect([this](std::int32_t value) { DIBProgress.raise(value); });
    DIB.ProgressEnd.connect([this] { DIBProgressEnd.raise(); });
}

void ucCanvas::paint() {
    auto target = viewTarget();
    if (target && hasPicture()) paintPicture(*target);
}

void ucCanvas::press(std::int16_t button, std::int16_t shift, const ViewPlace& place) {
    const Point view = rounded(place);
    const Point inPicture = toImage(view);
    if (hasPicture()) pressPicture(button, view, inPicture);
    // The place is told in the picture as it was pressed: the menu may have cut it meanwhile.
    MouseDown.raise(button, shift, inPicture.x, inPicture.y);
}

void ucCanvas::move(const PointerInput& input) {
    const ViewPlace place = placeInView(input);
    if (m_mouseIsDown) movePicture(place);
    raiseMouse(MouseMove, input.button, input.shift, place);
}

void ucCanvas::Repaint() {
    paint();
    showChange(m_iCanvas);
}

ucCanvas::ScrollInfo ucCanvas::GetScrollInfo() const {
    return {m_horizontal.maximum(), m_vertical.maximum(), m_horizontal.position(), m_vertical.position()};
}

void ucCanvas::SetScrollInfo(std::int32_t lHPos, std::int32_t lVPos) {
    scrollTo(lHPos, lVPos);
    Repaint();
}

Rect ucCanvas::GetVisibleRect() const {
    const std::int32_t left = m_horizontal.position() / m_zoom;
    const std::int32_t top = m_vertical.position() / m_zoom;
    const auto end = [this](int length, std::int64_t start) { return clampInt(length / m_zoom + start); };
    return {left, top, end(m_iCanvas.width(), left), end(m_iCanvas.height(), top)};
}

void ucCanvas::setBackColor(std::uint32_t value) {
    m_backColor = value;
    fillMargin(OleTranslateColor(value));
    showAll();
}

void ucCanvas::setWorkMode(std::int32_t value) {
    if (value == kScrollMode) RemoveCropRectangle();
    m_workMode = value;
    refreshMouseIcon();
}

void ucCanvas::appearanceChanged() {
    paintAll();
}

std::string ucCanvas::accessibleValue() const {
    if (!hasPicture()) return {};
    const double percent = m_fitMode ? m_frame.ScaleFactor() * 100.0 : m_zoom * 100.0;
    return std::to_string(DIB.Width()) + " x " + std::to_string(DIB.Height()) + ", " +
           std::to_string(roundClamped(percent)) + " %";
}

void ucCanvas::hostChanged() {
    m_shownCursor.reset();
    showCursor();
}

}  // namespace mobrel
