// SPDX-License-Identifier: MIT
// The folder picker.
#pragma once

#include <string>
#include <string_view>

class QWidget;

namespace mobrel {

/// Asks for a folder; its path, empty on cancel. Opens at `startPath`, or with none at the place where the
/// last call ended, by cancel too; at first at the program's folder.
std::string BrowseForFolder(QWidget* owner, std::string_view title, std::string_view startPath);

/// The program's folder, ending in one separator.
std::string AppPathSlash();

}  // namespace mobrel
