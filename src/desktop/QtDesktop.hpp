// SPDX-License-Identifier: MIT
// The desktop with windows.
#pragma once

#include "platform/screen/Desktop.hpp"

namespace mobrel {

/// Needs an Application.
Desktop qtDesktop();

}  // namespace mobrel
