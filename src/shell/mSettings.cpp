// SPDX-License-Identifier: MIT
#include "shell/mSettings.hpp"

#include <string>
#include <vector>

#include "platform/NumberText.hpp"
#include "shell/mINI.hpp"

namespace mobrel {

namespace {

std::string wordOf(bool value) {
    return value ? "True" : "False";
}

}  // namespace

void SaveMainSettings(const MainSettings& settings) {
    std::vector<ProfileValue> values;
    if (settings.windowState == WindowState::Normal) {
        values = {{"Forms", "MainWidth", textOf(settings.place.Width)},
                  {"Forms", "MainHeight", textOf(settings.place.Height)},
                  {"Forms", "MainTop", textOf(settings.place.Top)},
                  {"Forms", "MainLeft", textOf(settings.place.Left)}};
    }
    values.push_back({"Forms", "MainWindowState", std::to_string(static_cast<int>(settings.windowState))});
    values.push_back({"Folders", "MainLastPath", settings.LastPath});
    values.push_back({"Options", "MainDialogPreview", wordOf(settings.DialogPreview)});
    values.push_back({"Options", "MainDialogFitMode", wordOf(settings.DialogFitMode)});
    values.push_back({"Options", "MainDialogJPEGquality", std::to_string(settings.DialogJPEGquality)});
    INIWrite("Mobrel.ini", values);
}

}  // namespace mobrel
