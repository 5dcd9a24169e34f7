// SPDX-License-Identifier: MIT
// Every dialog that there is.
#pragma once

namespace mobrel {

/// Enters the dialogs in the desktop's registry.
void registerDialogs();

}  // namespace mobrel
