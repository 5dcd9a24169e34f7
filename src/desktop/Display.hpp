// SPDX-License-Identifier: MIT
// Whether there is a display, asked before Qt is started: Qt ends the process where there is none.
#pragma once

#include <string>

namespace mobrel {

/// The platforms for Qt's option -platform, in the order to be tried, when a user can see a window: an X
/// server or a Wayland compositor answers, or QT_QPA_PLATFORM names another platform. Empty when not;
/// Qt's offscreen and minimal platforms count as none.
std::string usablePlatforms();

}  // namespace mobrel
