// SPDX-License-Identifier: MIT
#include "desktop/InputValues.hpp"

#include <algorithm>
#include <array>

namespace mobrel {

namespace {

struct NumberedKey {
    int key;  // of Qt::Key
    std::int16_t code;
};

constexpr std::array kKeys = std::to_array<NumberedKey>({
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},      {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},    {Qt::Key_Control, 17},     {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},      {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},         {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},     {Qt::Key_Up, 38},       {Qt::Key_Right, 39},       {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46},      {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},     {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145}, {Qt::Key_Semicolon, 186},
    {Qt::Key_Plus, 187},    {Qt::Key_Equal, 187},   {Qt::Key_Comma, 188},      {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},  {Qt::Key_Slash, 191},
});

constexpr std::array kNumberPadKeys = std::to_array<NumberedKey>({
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, KeyCode::kAdd},
    {Qt::Key_Minus, KeyCode::kSubtract},
    {Qt::Key_Comma, 110},
    {Qt::Key_Period, 110},
    {Qt::Key_Slash, 111},
});

template <std::size_t count>
std::int16_t codeIn(const std::array<NumberedKey, count>& keys, int key) {
    const auto* found = std::ranges::find(keys, key, &NumberedKey::key);
    return found == keys.end() ? std::int16_t{0} : found->code;
}

/// The codes of a row of keys that stand in the same order in both.
std::int16_t codeInRow(int key, int first, int last, int firstCode) {
    return key < first || key > last ? std::int16_t{0} : static_cast<std::int16_t>(key - first + firstCode);
}

std::int16_t firstOf(std::initializer_list<std::int16_t> codes) {
    const auto* found = std::ranges::find_if(codes, [](std::int16_t code) { return code != 0; });
    return found == codes.end() ? std::int16_t{0} : *found;
}

std::int16_t shiftState(Qt::KeyboardModifiers modifiers) {
    int sum = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) sum += ShiftState::kShift;
    if (modifiers.testFlag(Qt::ControlModifier)) sum += ShiftState::kControl;
    if (modifiers.testFlag(Qt::AltModifier)) sum += ShiftState::kAlt;
    return static_cast<std::int16_t>(sum);
}

/// The platform's virtual key code, 0 for a key without one. The keys of the number pad have codes of their
/// own while they type digits and signs.
std::int16_t keyCode(const QKeyEvent& event) {
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        const std::int16_t code =
            firstOf({codeInRow(key, Qt::Key_0, Qt::Key_9, 96), codeIn(kNumberPadKeys, key)});
        if (code != 0) return code;
    }
    return firstOf({codeInRow(key, Qt::Key_0, Qt::Key_9, '0'), codeInRow(key, Qt::Key_A, Qt::Key_Z, 'A'),
                    codeInRow(key, Qt::Key_F1, Qt::Key_F24, 112), codeIn(kKeys, key)});
}

}  // namespace

std::int16_t mouseButtons(Qt::MouseButtons buttons) {
    int sum = MouseButton::kNone;
    if (buttons.testFlag(Qt::LeftButton)) sum += MouseButton::kLeft;
    if (buttons.testFlag(Qt::RightButton)) sum += MouseButton::kRight;
    if (buttons.testFlag(Qt::MiddleButton)) sum += MouseButton::kMiddle;
    return static_cast<std::int16_t>(sum);
}

PointerInput pointerInput(const QMouseEvent& event, double scale) {
    const QPointF place = event.position() * scale;
    const bool isMove = event.type() == QEvent::MouseMove;
    return {mouseButtons(isMove ? event.buttons() : Qt::MouseButtons(event.button())),
            shiftState(event.modifiers()), static_cast<float>(place.x()), static_cast<float>(place.y())};
}

WheelInput wheelInput(const QWheelEvent& event, double scale) {
    const QPointF place = event.position() * scale;
    // Only a touchpad that tells no angles: a notch is three lines of 16 pixels.
    constexpr double kAnglePerPixel = 120.0 / 48;
    const QPoint angle =
        event.angleDelta().isNull() ? event.pixelDelta() * kAnglePerPixel : event.angleDelta();
    return {shiftState(event.modifiers()), static_cast<float>(place.x()), static_cast<float>(place.y()),
            angle.x(), angle.y()};
}

KeyInput keyInput(const QKeyEvent& event) {
    return {keyCode(event), shiftState(event.modifiers())};
}

}  // namespace mobrel
