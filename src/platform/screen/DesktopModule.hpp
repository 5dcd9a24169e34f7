// SPDX-License-Identifier: MIT
// The desktop with windows, in a module of its own that only a run that needs it loads.
#pragma once

#include "platform/screen/Desktop.hpp"

namespace mobrel {

/// The desktop of the module mobrel-desktop, which is opened when the first message or dialog is shown and
/// a display is named: DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM is set. Where none is, or it does not
/// answer, or the module is missing, it is the console's; the latter two are told once on standard error.
/// The mouse pointer set before is the one that windows come up with. Copying is the console's.
Desktop desktopOnDemand();

/// The C function `kOpenDesktop` of the module. Null when there is no display. To be called on the main
/// thread.
using OpenDesktopFunction = const Desktop*();
constexpr const char* kOpenDesktop = "mobrelOpenDesktop";

}  // namespace mobrel
