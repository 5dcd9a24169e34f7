// SPDX-License-Identifier: MIT
#include "shell/mINI.hpp"

#include "platform/AsciiText.hpp"
#include "platform/ProfileFile.hpp"
#include "shell/mMisc.hpp"

namespace mobrel {

namespace {

std::string pathOf(std::string_view file) {
    return AppFolder().append(file);
}

}  // namespace

void INIWrite(std::string_view file, std::string_view section, std::string_view key, std::string_view value) {
    WritePrivateProfileString(section, key, value, pathOf(file));
}

std::string INIRead(std::string_view file, std::string_view section, std::string_view key,
                    std::string_view defaultValue) {
    constexpr std::size_t kBufferSize = 260;
    return std::string(
        withoutOuterBlanks(GetPrivateProfileString(section, key, defaultValue, kBufferSize, pathOf(file))));
}

std::string ConfigRead(std::string_view section, std::string_view key) {
    constexpr std::size_t kBufferSize = 255;
    const std::string value =
        GetPrivateProfileString(section, key, "ERROR", kBufferSize, pathOf("config.ini"));
    return value.substr(0, value.find('\0'));
}

}  // namespace mobrel
