// SPDX-License-Identifier: MIT
// The desktop with windows.
#pragma once

#include "platform/Desktop.hpp"

namespace mobrel {

/// Needs an Application. The clipboard is the console's, which outlives the program.
Desktop qtDesktop();

}  // namespace mobrel
