// SPDX-License-Identifier: MIT
// The desktop with windows.
#pragma once

#include "platform/Desktop.hpp"

namespace mobrel {

/// Needs an Application.
Desktop qtDesktop();

}  // namespace mobrel
