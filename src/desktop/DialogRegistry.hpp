// SPDX-License-Identifier: MIT
// What the desktop knows of dialogs, which stand above it.
#pragma once

#include <string_view>

namespace mobrel {

/// Shows the dialog of a name; false for a name that no dialog has.
using ShowDialogFunction = bool(std::string_view name, int id);

/// Entered when the module is opened; before, no dialog can be shown.
inline ShowDialogFunction* dialogRegistry = [](std::string_view, int) { return false; };

}  // namespace mobrel
