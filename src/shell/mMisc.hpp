// SPDX-License-Identifier: MIT
// Folders as texts.
#pragma once

#include <string>

namespace mobrel {

/// The path, ending in a separator.
std::string AddBackslash(std::string path);

/// The program's folder, ending in one separator: MOBREL_FOLDER where it is set, else the folder of the
/// executable.
std::string AppFolder();

}  // namespace mobrel
