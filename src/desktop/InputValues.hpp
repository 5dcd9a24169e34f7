// SPDX-License-Identifier: MIT
// What Qt tells of mouse, wheel and keyboard, under the platform's numbers.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "platform/control/ControlInput.hpp"

namespace mobrel {

/// kNone for a button that the platform has no number for.
std::int16_t mouseButton(Qt::MouseButton button);
/// The sum of those that are down.
std::int16_t mouseButtons(Qt::MouseButtons buttons);
std::int16_t shiftState(Qt::KeyboardModifiers modifiers);
/// The platform's virtual key code, 0 for a key without one. The keys of the number pad have codes of their
/// own while they type digits and signs.
std::int16_t keyCode(const QKeyEvent& event);

/// Places in device pixels, where `scale` of them are one of Qt's.
PointerInput pointerInput(const QMouseEvent& event, double scale);
WheelInput wheelInput(const QWheelEvent& event, double scale);
KeyInput keyInput(const QKeyEvent& event);

}  // namespace mobrel
