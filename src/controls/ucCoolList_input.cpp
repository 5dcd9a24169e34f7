// SPDX-License-Identifier: MIT
// Pointer, wheel and keys.
#include <algorithm>

#include "controls/ucCoolList.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kRowsPerNotch = 3;

// Milliseconds.
constexpr double kStepTimePerPixel = 20;
constexpr double kLongestStepTime = 500;
constexpr double kShortestStepTime = 40;
constexpr int kLongestLook = 5;

/// MousePointer's number of the cursor that sizes by a corner.
constexpr std::int16_t kSizeNorthWestSouthEast = 8;

}  // namespace

void ucCoolList::setMousePointer(std::int16_t value) {
    m_properties.MousePointer = value;
    showCursor();
}

void ucCoolList::showCursor() {
    if (host() == nullptr) return;
    const bool isSizing = m_properties.MousePointer == kSizeNorthWestSouthEast;
    host()->setCursor(isSizing ? Cursor::SizeNorthWestSouthEast : Cursor::Default);
}

PointerInput ucCoolList::onSurface(const PointerInput& input) const {
    const auto edge = static_cast<float>(border());
    return {input.button, input.shift, input.x - edge, input.y - edge};
}

bool ucCoolList::isOnSurface(const PointerInput& input) const {
    return surfaceRect().contains(input.x, input.y);
}

void ucCoolList::pointerPressed(const PointerInput& input) {
    if (!m_properties.Enabled || !isOnSurface(input)) return;
    const PointerInput place = onSurface(input);
    change([&] {
        if (place.button != MouseButton::kRight) {
            m_isMouseDown = true;
            captureMouse();
            if (const auto item = itemUnder(place.y)) pressRow(*item, place.y);
        }
        note(MouseDown, place.button, place.shift, place.x, place.y);
    });
}

void ucCoolList::pressRow(int item, float y) {
    bool& isSelected = itemAt(item).isSelected;
    isSelected = !isMultiple() || !isSelected;
    if (isMultiple()) m_dragValue = isSelected;
    m_lastMouseY = y;
    moveTo(item);
}

void ucCoolList::pointerMoved(const PointerInput& input) {
    if (!m_properties.Enabled) return;
    const PointerInput place = onSurface(input);
    m_mouseY = place.y;
    if (place.button == MouseButton::kNone) m_isMouseDown = false;  // its release went to another window
    const auto life = this->life();
    if (isDraggedOutside()) autoScroll();
    if (life.expired()) return;
    change([&] {
        const bool selects = m_properties.HoverSelection || m_isMouseDown;
        if (selects && !isOutside(place.y)) dragTo(place.y);
        note(MouseMove, place.button, place.shift, place.x, place.y);
    });
}

void ucCoolList::dragTo(float y) {
    const auto item = itemUnder(y);
    if (!item || visibleRowAt(y) == visibleRowAt(m_lastMouseY)) return;
    itemAt(*item).isSelected = m_dragValue;
    m_lastMouseY = y;
    moveTo(*item);
}

bool ucCoolList::isOutside(float y) const {
    return y < 0 || y >= static_cast<float>(surfaceHeight());
}

bool ucCoolList::isDraggedOutside() const {
    return host() != nullptr && m_isMouseDown && isOutside(m_mouseY);
}

/// Runs while the button is down and the pointer outside. Moves come in nested from the pending events; they
/// only tell this one loop where the pointer is, and so how fast it steps. Both they and the handlers of a
/// step may end the list.
void ucCoolList::autoScroll() {
    if (std::exchange(m_isAutoScrolling, true)) return;
    const auto life = this->life();
    std::uint32_t lastStep = host()->GetTickCount();
    while (!life.expired() && isDraggedOutside()) {
        host()->runPendingEvents(kLongestLook);
        if (life.expired() || !isDraggedOutside()) continue;
        const std::uint32_t now = host()->GetTickCount();
        if (now - lastStep <= stepTime()) continue;
        lastStep = now;
        change([this] { stepOutwards(); });
    }
    if (!life.expired()) m_isAutoScrolling = false;
}

/// Milliseconds from step to step: the farther outside, in design pixels, the fewer.
double ucCoolList::stepTime() const {
    const double above = m_mouseY / scale();
    const double below = (m_mouseY - static_cast<float>(surfaceHeight())) / scale();
    const double time = m_mouseY < 0 ? (above + kLongestStepTime / kStepTimePerPixel) * kStepTimePerPixel
                                     : kLongestStepTime - (below - 1) * kStepTimePerPixel;
    return std::max(time, kShortestStepTime);
}

void ucCoolList::stepOutwards() {
    const int next = m_listIndex + (m_mouseY < 0 ? -1 : 1);
    if (!isItem(next)) return;
    if (isMultiple()) itemAt(next).isSelected = m_dragValue;
    moveTo(next);
}

void ucCoolList::pointerReleased(const PointerInput& input) {
    const bool wasPressed = std::exchange(m_isMouseDown, false);
    m_dragValue = true;
    if (!m_properties.Enabled) return;
    const PointerInput place = onSurface(input);
    const auto life = this->life();
    MouseUp.raise(place.button, place.shift, place.x, place.y);
    if (life.expired() || !wasPressed || !isOnSurface(input) || m_listIndex < 0) return;
    Click.raise();
}

/// Stands in for the second press.
void ucCoolList::pointerDoubleClicked(const PointerInput& input) {
    if (m_properties.Enabled && isOnSurface(input) && m_listIndex > -1) DblClick.raise();
}

void ucCoolList::wheelTurned(const WheelInput& input) {
    if (!m_properties.Enabled || !m_hasScrollBar) return;
    const bool hasTurnedBack = (m_turns.rest() < 0) != (input.vertical < 0);
    if (hasTurnedBack) m_turns = {};
    const std::int64_t rows = m_turns.take(input.vertical, kRowsPerNotch);
    if (rows != 0) m_scroll.setValue(clampInt(m_scroll.Value() - rows));
}

bool ucCoolList::keyPressed(const KeyInput& input) {
    if (!m_properties.Enabled) return false;
    bool isOwn = false;
    change([&] {
        isOwn = isItem(m_listIndex) && obeyKey(input.keyCode);
        note(KeyDown, input.keyCode, input.shift);
    });
    return isOwn;
}

/// True when the key means something to the list. There is a current item.
bool ucCoolList::obeyKey(std::int16_t keyCode) {
    const int last = ListCount() - 1;
    switch (keyCode) {
        case KeyCode::kUp:
            if (m_listIndex > 0) moveTo(m_listIndex - 1);
            return true;
        case KeyCode::kDown:
            if (m_listIndex < last) moveTo(m_listIndex + 1);
            return true;
        case KeyCode::kPageUp:
            moveTo(std::max(m_listIndex - m_visibleRows, 0));
            return true;
        case KeyCode::kPageDown:
            moveTo(std::min(m_listIndex + m_visibleRows, last));
            return true;
        case KeyCode::kHome:
            moveTo(0);
            return true;
        case KeyCode::kEnd:
            moveTo(last);
            return true;
        case KeyCode::kSpace:
            if (isMultiple()) setItemSelected(m_listIndex, !ItemSelected(m_listIndex));
            note(Click);
            return true;
        default:
            return false;
    }
}

void ucCoolList::keyReleased(const KeyInput& input) {
    if (m_properties.Enabled) KeyUp.raise(input.keyCode, input.shift);
}

void ucCoolList::keyTyped(char32_t character) {
    if (m_properties.Enabled) KeyPress.raise(character);
}

void ucCoolList::focusChanged(bool hasFocus) {
    m_hasFocus = hasFocus;
    drawRow(m_listIndex);
}

}  // namespace mobrel
