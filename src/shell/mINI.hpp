// SPDX-License-Identifier: MIT
// Single values of the two text files in the program's folder.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/system/ProfileFile.hpp"

namespace mobrel {

/// Writes one value of a file in the program's folder. A file that cannot be written loses the value.
void INIWrite(std::string_view file, std::string_view section, std::string_view key, std::string_view value);

/// The same for several values at once.
void INIWrite(std::string_view file, std::span<const ProfileValue> values);

/// Reads one value of a file in the program's folder, at most 259 bytes of it, without blanks at its
/// ends; the default when it is not there.
std::string INIRead(std::string_view file, std::string_view section, std::string_view key,
                    std::string_view defaultValue);

/// The one section of the hand-off file config.ini.
constexpr std::string_view kHandoffSection = "ZV-HARBORLY";

/// Tells the host that its task was done: WinState in config.ini becomes 1. A file that cannot be written
/// says nothing.
void writeWinState();

/// Reads one value of the hand-off file config.ini, at most 254 bytes of it and up to its first NUL;
/// "ERROR" when it is not there.
std::string ConfigRead(std::string_view section, std::string_view key);

}  // namespace mobrel
