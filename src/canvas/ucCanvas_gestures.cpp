// SPDX-License-Identifier: MIT
// What the user's pointer, wheel and keys do.
#include <algorithm>

#include "canvas/ucCanvas.hpp"

namespace mobrel {

void ucCanvas::pointerPressed(const PointerInput& input) {
    if (!m_isEnabled) return;
    catchPointer(input.button);
    press(input.button, input.shift, placeInView(input));
}

/// Until the buttons are up, the pointer is the picture's, wherever it is.
void ucCanvas::catchPointer(std::int16_t button) {
    m_buttonsDown |= button;
    m_isPointerOverView = true;
    showCursor();
    captureMouse();
}

void ucCanvas::pointerMoved(const PointerInput& input) {
    m_buttonsDown &= input.button;  // a menu can have heard the release
    m_isPointerOverView = m_buttonsDown != MouseButton::kNone || isOverView(input);
    showCursor();
    if (m_isEnabled && m_isPointerOverView) move(input);
}

void ucCanvas::pointerReleased(const PointerInput& input) {
    const bool isForView = m_buttonsDown != MouseButton::kNone || m_mouseIsDown || isOverView(input);
    m_buttonsDown &= ~input.button;
    m_isPointerOverView = m_buttonsDown != MouseButton::kNone || isOverView(input);
    showCursor();
    if (isForView && (m_isEnabled || m_mouseIsDown)) release(input);
}

/// Stands in for the second press of a double click. With another button than the left it is a press like any
/// other. The margin ignores a double click.
void ucCanvas::pointerDoubleClicked(const PointerInput& input) {
    if (input.button != MouseButton::kLeft) return pointerPressed(input);
    if (!m_isEnabled || !isOverView(input)) return;
    catchPointer(MouseButton::kLeft);
    press(MouseButton::kLeft, 0, {double(m_lastX), double(m_lastY)});
}

bool ucCanvas::keyPressed(const KeyInput& input) {
    if (!m_isEnabled) return false;
    if (m_mouseIsDown) return true;
    KeyDown.raise(input.keyCode, input.shift);
    const bool isArrow = input.keyCode >= KeyCode::kLeft && input.keyCode <= KeyCode::kDown;
    return isArrow || input.keyCode == KeyCode::kAdd || input.keyCode == KeyCode::kSubtract;
}

void ucCanvas::pressPicture(std::int16_t button, const Point& view, const Point& inPicture) {
    if (isHandOffered()) setMouseIcon(Cursor::HandCatch);
    if (button == MouseButton::kRight && m_frame.IsPointInFrame(inPicture.x, inPicture.y)) {
        showCropMenu(view);
    }
    if (button == MouseButton::kLeft && m_workMode == kCropMode) {
        m_frame.Init(0, 0, DIB.Width(), DIB.Height());
        Repaint();
    }
    m_mouseIsDown = button == MouseButton::kLeft;
    m_lastX = view.x;
    m_lastY = view.y;
}

void ucCanvas::movePicture(const ViewPlace& place) {
    if (m_workMode == kScrollMode) dragByHand(place);
    if (m_workMode == kCropMode) dragFrame(place);
}

/// kept: in FitMode too, where nothing of it shows.
void ucCanvas::dragByHand(const ViewPlace& place) {
    m_horizontal.moveTo(roundClamped(m_lastX - place.x + m_horizontal.position()));
    m_vertical.moveTo(roundClamped(m_lastY - place.y + m_vertical.position()));
    const Point view = rounded(place);
    m_lastX = view.x;
    m_lastY = view.y;
    if (m_horizontal.hasMoved() || m_vertical.hasMoved()) {
        Repaint();
        Scroll.raise();
    }
    m_horizontal.publish();
    m_vertical.publish();
}

void ucCanvas::release(const PointerInput& input) {
    const ViewPlace place = placeInView(input);
    if (isHandOffered()) setMouseIcon(Cursor::HandOver);
    eraseRubberBand();
    if (m_mouseIsDown && m_workMode == kCropMode) finishFrame();
    m_mouseIsDown = false;
    raiseMouse(MouseUp, input.button, input.shift, place);
}

void ucCanvas::raiseMouse(const MouseEvent& event, std::int16_t button, std::int16_t shift,
                          const ViewPlace& place) {
    const Point inPicture = toImage(rounded(place));
    event.raise(button, shift, inPicture.x, inPicture.y);
}

bool ucCanvas::isOverView(const PointerInput& input) const {
    return m_iCanvas.contains(input.x, input.y);
}

ucCanvas::ViewPlace ucCanvas::placeInView(const PointerInput& input) const {
    return {double{input.x} - m_iCanvas.left, double{input.y} - m_iCanvas.top};
}

/// True when the hand can drag: its cursor shows it.
bool ucCanvas::isHandOffered() const {
    const bool scrolls = m_horizontal.maximum() != 0 || m_vertical.maximum() != 0;
    return m_workMode == kScrollMode && !m_fitMode && scrolls;
}

void ucCanvas::refreshMouseIcon() {
    if (isHandOffered()) return setMouseIcon(Cursor::HandOver);
    setMouseIcon(m_workMode == kPickColorMode ? Cursor::PickColor : Cursor::Default);
}

void ucCanvas::setMouseIcon(Cursor cursor) {
    m_mouseIcon = cursor;
    showCursor();
}

/// The icon is the picture's alone; the margin has the default cursor.
void ucCanvas::showCursor() {
    const Cursor cursor = m_isPointerOverView ? m_mouseIcon : Cursor::Default;
    if (host() == nullptr || m_shownCursor == cursor) return;
    m_shownCursor = cursor;
    host()->setCursor(cursor);
}

void ucCanvas::wheelTurned(const WheelInput& input) {
    if (!m_isEnabled || m_mouseIsDown || m_fitMode || !hasPicture()) return;
    if ((input.shift & ShiftState::kControl) != 0) {
        zoomByWheel(input);
    } else {
        scrollByWheel(input);
    }
}

void ucCanvas::scrollByWheel(const WheelInput& input) {
    constexpr int kDesignPixelsPerNotch = 3 * 16;
    const int perNotch = scaled(kDesignPixelsPerNotch);
    const bool isSideways = (input.shift & ShiftState::kShift) != 0;
    const int left = input.horizontal + (isSideways ? input.vertical : 0);
    const int up = isSideways ? 0 : input.vertical;
    const ScrollInfo before = GetScrollInfo();
    scrollTo(clampInt(before.lHPos - m_horizontalTurns.take(left, perNotch)),
             clampInt(before.lVPos - m_verticalTurns.take(up, perNotch)));
    if (GetScrollInfo() == before) return;
    Repaint();
    Scroll.raise();
}

void ucCanvas::zoomByWheel(const WheelInput& input) {
    const std::int32_t zoom = clampInt(m_zoom + m_zoomTurns.take(input.vertical));
    const std::int32_t allowed = std::clamp(zoom, 1, std::max(m_largestWheelZoom, m_zoom));
    if (allowed == m_zoom) return;
    zoomAbout(allowed, std::clamp(roundClamped(input.x), 0, width()),
              std::clamp(roundClamped(input.y), 0, height()));
}

/// Lays out at another zoom, with the picture pixel at a place of the control where it was. Rounding down
/// keeps it the same pixel.
void ucCanvas::zoomAbout(std::int32_t zoom, int x, int y) {
    const std::int64_t enlargedX = std::int64_t{x} - m_iCanvas.left + m_horizontal.position();
    const std::int64_t enlargedY = std::int64_t{y} - m_iCanvas.top + m_vertical.position();
    const std::int32_t earlierZoom = m_zoom;
    m_zoom = zoom;
    placeView();
    scrollTo(clampInt(enlargedX * zoom / earlierZoom - (x - m_iCanvas.left)),
             clampInt(enlargedY * zoom / earlierZoom - (y - m_iCanvas.top)));
    showLayout();
    refreshMouseIcon();
    ZoomChanged.raise();
}

}  // namespace mobrel
