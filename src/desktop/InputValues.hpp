// SPDX-License-Identifier: MIT
// What Qt tells of mouse, wheel and keyboard, under the platform's numbers.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "platform/control/ControlInput.hpp"

namespace mobrel {

/// The sum of the buttons' numbers, without those that the platform has none for.
std::int16_t mouseButtons(Qt::MouseButtons buttons);

/// A press or release has its button, kNone when the platform has no number for it, a move all that are down.
/// Places in device pixels, where `scale` of them are one of Qt's.
PointerInput pointerInput(const QMouseEvent& event, double scale);
WheelInput wheelInput(const QWheelEvent& event, double scale);
KeyInput keyInput(const QKeyEvent& event);

}  // namespace mobrel
