// SPDX-License-Identifier: MIT
// The dialogs by their names.
#pragma once

#include <string_view>

namespace mobrel {

/// Shows the dialog of that name and waits until it is closed; `id` is what it starts with. False for a name
/// that no dialog has. An error in it ends the process, as it does in any handler of a window.
bool showDialogByName(std::string_view name, int id);

}  // namespace mobrel
