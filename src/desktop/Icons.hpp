// SPDX-License-Identifier: MIT
// The icons on buttons.
#pragma once

#include <QIcon>

namespace mobrel {

/// One of our drawings: undo, redo, zoom-in, zoom-out, close. It is drawn anew at each paint, for the device
/// pixels there, in the colour that the application's palette has for the texts of buttons, so it follows
/// every change. A null icon for another name.
QIcon drawnIcon(const QString& name);

}  // namespace mobrel
