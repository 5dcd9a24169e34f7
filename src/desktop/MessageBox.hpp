// SPDX-License-Identifier: MIT
// The message box.
#pragma once

#include <string_view>

#include "platform/screen/Desktop.hpp"

namespace mobrel {

/// Shows plain text and waits for the answer; the mouse pointer is an arrow meanwhile. Escape and closing
/// count as Cancel where there is one, else as the only button.
MessageAnswer showMessage(std::string_view text, MessageIcon icon, MessageButtons buttons);

}  // namespace mobrel
