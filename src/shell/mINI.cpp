// SPDX-License-Identifier: MIT
#include "shell/mINI.hpp"

#include <algorithm>

#include "shell/mMisc.hpp"

namespace mobrel {

namespace {

constexpr const char* kHandoffFile = "config.ini";

std::string pathOf(std::string_view file) {
    return AppFolder().append(file);
}

}  // namespace

void INIWrite(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
    WritePrivateProfileString(section, key, value, pathOf(file));
}

void INIWrite(std::string_view file, std::span<const ProfileValue> values) {
    WritePrivateProfileStrings(values, pathOf(file));
}

std::string INIRead(std::string_view file, std::string_view section, std::string_view key,
                    std::string_view defaultValue) {
    constexpr std::size_t kBufferSize = 260;
    std::string value = GetPrivateProfileString(section, key, defaultValue, kBufferSize, pathOf(file));
    // kept: what follows the value in the buffer shields its trailing spaces from the trim.
    return value.erase(0, std::min(value.find_first_not_of(' '), value.size()));
}

void writeWinState() {
    INIWrite(kHandoffFile, kHandoffSection, "WinState", "1");
}

std::string ConfigRead(std::string_view section, std::string_view key) {
    constexpr std::size_t kBufferSize = 255;
    const std::string value =
        GetPrivateProfileString(section, key, "ERROR", kBufferSize, pathOf(kHandoffFile));
    return value.substr(0, value.find('\0'));
}

}  // namespace mobrel
