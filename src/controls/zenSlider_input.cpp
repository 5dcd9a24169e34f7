// SPDX-License-Identifier: MIT
// What the user does with the slider.
#include <algorithm>
#include <cstdlib>

#include "controls/zenSlider.hpp"

namespace mobrel {

namespace {

constexpr int kPagesInRange = 10;

}  // namespace

void zenSlider::pointerPressed(const PointerInput& input) {
    showFocus(false);
    if (input.button != MouseButton::kLeft || !m_enabled) return;
    m_isDragging = true;
    captureMouse();
    const auto knobWidth = static_cast<float>(this->knobWidth());
    const auto knobHeight = static_cast<float>(this->knobHeight());
    const auto life = this->life();
    const bool isOnKnob = input.x >= m_left && input.x <= m_left + knobWidth &&  //
                          input.y >= m_top && input.y <= m_top + knobHeight;
    if (isOnKnob) {
        m_dX = input.x - m_left;
        m_dY = input.y - m_top;
    } else {
        m_dX = knobWidth / 2;
        m_dY = knobHeight / 2;
        dragTo(input);
        if (life.expired()) return;
    }
    std::int16_t shift = input.shift;
    MouseDown.raise(shift);
}

void zenSlider::pointerMoved(const PointerInput& input) {
    if ((input.button & MouseButton::kLeft) == 0) m_isDragging = false;  // its release went to another window
    if (m_isDragging) dragTo(input);
}

void zenSlider::pointerReleased(const PointerInput& input) {
    const auto life = this->life();
    if (m_enabled && input.button == MouseButton::kLeft && bounds().contains(input.x, input.y)) Click.raise();
    if (life.expired() || !m_isDragging) return;
    std::int16_t shift = input.shift;
    MouseUp.raise(shift);
    if (!life.expired()) m_isDragging = false;
}

/// The knob follows the pointer as far as it can go, and from there to the nearest value.
void zenSlider::dragTo(const PointerInput& input) {
    // With nothing to choose from, or no room, the knob stays.
    if (m_range <= 0 || travel() == 0) return;
    const float held = isHorizontal() ? input.x - m_dX : input.y - m_dY;
    float& place = isHorizontal() ? m_left : m_top;
    const float before = place;
    if (held < 0) {
        place = 0;
    } else {
        place = travel() >= held ? held : static_cast<float>(travel());
    }
    const std::int32_t value = valueUnderKnob();
    placeAlong(value);
    if (value == m_value && place != before) repaint();  // after a new Max it stood elsewhere
    setValue(value);
}

void zenSlider::wheelTurned(const WheelInput& input) {
    const std::int64_t steps = m_turns.take(std::int64_t{input.vertical} - input.horizontal);
    if (steps != 0) changeByUser(m_value + steps);
}

bool zenSlider::keyPressed(const KeyInput& input) {
    if (!m_enabled || (input.shift & (ShiftState::kControl | ShiftState::kAlt)) != 0) return false;
    const std::int64_t page = std::max<std::int64_t>(1, m_range / kPagesInRange);
    std::int64_t value = m_value;
    switch (input.keyCode) {
        case KeyCode::kLeft:
        case KeyCode::kDown:
            value -= 1;
            break;
        case KeyCode::kRight:
        case KeyCode::kUp:
            value += 1;
            break;
        case KeyCode::kPageDown:
            value -= page;
            break;
        case KeyCode::kPageUp:
            value += page;
            break;
        case KeyCode::kHome:
            value = m_min;
            break;
        case KeyCode::kEnd:
            value = m_max;
            break;
        default:
            return false;
    }
    showFocus(true);
    changeByUser(value);
    return true;
}

void zenSlider::focusChanged(bool hasFocus) {
    // Only the keyboard brings the sign: a press that brings the focus follows at once, and takes it away.
    showFocus(hasFocus);
}

void zenSlider::changeByUser(std::int64_t value) {
    if (!m_enabled || m_isDragging || m_range <= 0) return;
    setValue(static_cast<std::int32_t>(std::clamp<std::int64_t>(value, m_min, m_max)));
}

void zenSlider::showFocus(bool isShown) {
    if (m_showsFocus == isShown) return;
    m_showsFocus = isShown;
    repaint();
}

}  // namespace mobrel
