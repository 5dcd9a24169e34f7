// SPDX-License-Identifier: MIT
// How the parts of the gallery stand.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "platform/control/Control.hpp"

namespace mobrel::gallery {

/// A widget with a caption over it, which is its accessible name too.
QWidget* captioned(const QString& caption, QWidget* shown);

/// Does something once, after that time, unless the widget is gone.
void later(QWidget& widget, int milliseconds, const std::function<void()>& act);

/// Lets a control draw itself as it does with the keyboard, whoever has it.
void showFocused(QWidget& widget, Control& control);

}  // namespace mobrel::gallery
