// SPDX-License-Identifier: MIT
#include "shell/mSettings.hpp"

#include "platform/NumberText.hpp"
#include "shell/mINI.hpp"

namespace mobrel {

namespace {

void write(std::string_view section, std::string_view key, std::string_view value) {
    INIWrite("Mobrel.ini", section, key, value);
}

std::string wordOf(bool value) {
    return value ? "True" : "False";
}

}  // namespace

void SaveMainSettings(const MainSettings& settings) {
    if (settings.windowState == WindowState::Normal) {
        write("Forms", "MainWidth", textOf(settings.place.Width));
        write("Forms", "MainHeight", textOf(settings.place.Height));
        write("Forms", "MainTop", textOf(settings.place.Top));
        write("Forms", "MainLeft", textOf(settings.place.Left));
    }
    write("Forms", "MainWindowState", std::to_string(static_cast<int>(settings.windowState)));
    write("Folders", "MainLastPath", settings.LastPath);
    write("Options", "MainDialogPreview", wordOf(settings.DialogPreview));
    write("Options", "MainDialogFitMode", wordOf(settings.DialogFitMode));
    write("Options", "MainDialogJPEGquality", std::to_string(settings.DialogJPEGquality));
}

}  // namespace mobrel
