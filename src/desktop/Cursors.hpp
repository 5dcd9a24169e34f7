// SPDX-License-Identifier: MIT
// The mouse pointers, the system's own three among them.
#pragma once

#include <QCursor>

#include "platform/control/ControlHost.hpp"

namespace mobrel {

/// Default is the arrow. Those of our own are drawn for the display scale.
QCursor qtCursor(Cursor cursor, double scale);

}  // namespace mobrel
