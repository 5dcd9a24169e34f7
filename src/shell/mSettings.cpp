// SPDX-License-Identifier: MIT
#include "shell/mSettings.hpp"

#include <cmath>
#include <limits>
#include <vector>

#include "platform/base/NumberText.hpp"
#include "platform/base/RuntimeError.hpp"
#include "shell/mINI.hpp"
#include "shell/mMisc.hpp"

namespace mobrel {

namespace {

constexpr const char* kFile = "Mobrel.ini";
constexpr const char* kForms = "Forms";
constexpr const char* kFolders = "Folders";
constexpr const char* kOptions = "Options";

std::string wordOf(bool value) {
    return value ? "True" : "False";
}

double numberIn(const char* section, const char* key, const std::string& defaultText) {
    const auto number = numberOf(INIRead(kFile, section, key, defaultText));
    if (!number) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *number;
}

float readSingle(const char* key, float present) {
    const double number = numberIn(kForms, key, textOf(present));
    if (std::abs(number) > std::numeric_limits<float>::max()) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<float>(number);
}

std::int16_t integerOf(double number) {
    const double whole = std::nearbyint(number);
    if (whole < std::numeric_limits<std::int16_t>::min() || whole > std::numeric_limits<std::int16_t>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(whole);
}

std::int16_t readInteger(const char* key, std::int16_t defaultValue) {
    return integerOf(numberIn(kOptions, key, std::to_string(defaultValue)));
}

ProfileValue option(const char* key, std::int16_t value) {
    return {kOptions, key, std::to_string(value)};
}

}  // namespace

void SaveMainSettings(const MainSettings& settings) {
    std::vector<ProfileValue> values;
    if (settings.windowState == WindowState::Normal) {
        values = {{kForms, "MainWidth", textOf(settings.place.Width)},
                  {kForms, "MainHeight", textOf(settings.place.Height)},
                  {kForms, "MainTop", textOf(settings.place.Top)},
                  {kForms, "MainLeft", textOf(settings.place.Left)}};
    }
    values.push_back({kForms, "MainWindowState", std::to_string(static_cast<int>(settings.windowState))});
    values.push_back({kFolders, "MainLastPath", settings.LastPath});
    values.push_back({kOptions, "MainDialogPreview", wordOf(settings.DialogPreview)});
    values.push_back({kOptions, "MainDialogFitMode", wordOf(settings.DialogFitMode)});
    values.push_back(option("MainDialogJPEGquality", settings.DialogJPEGquality));
    INIWrite(kFile, values);
}

WindowPlace LoadPanViewSettings(const WindowPlace& present) {
    WindowPlace place;
    place.Width = readSingle("PanViewWidth", present.Width);
    place.Height = readSingle("PanViewHeight", present.Height);
    place.Top = readSingle("PanViewTop", present.Top);
    place.Left = readSingle("PanViewLeft", present.Left);
    return place;
}

void SavePanViewSettings(const WindowPlace& place) {
    const ProfileValue values[] = {{kForms, "PanViewWidth", textOf(place.Width)},
                                   {kForms, "PanViewHeight", textOf(place.Height)},
                                   {kForms, "PanViewTop", textOf(place.Top)},
                                   {kForms, "PanViewLeft", textOf(place.Left)}};
    INIWrite(kFile, values);
}

FilterSettings LoadFilterSettings(const WindowCorner& present) {
    FilterSettings settings;
    settings.place.Top = readSingle("FilterTop", present.Top);
    settings.place.Left = readSingle("FilterLeft", present.Left);
    settings.BeforeFit = readInteger("FilterBeforeFit", settings.BeforeFit);
    settings.BeforePickColor = readInteger("FilterBeforePickColor", settings.BeforePickColor);
    settings.ResetValues = readInteger("FilterResetValues", settings.ResetValues);
    settings.NoClose = readInteger("FilterNoClose", settings.NoClose);
    return settings;
}

TexturizeSettings LoadTexturizeSettings(const WindowCorner& present) {
    TexturizeSettings settings;
    settings.place.Top = readSingle("TexturizeTop", present.Top);
    settings.place.Left = readSingle("TexturizeLeft", present.Left);
    settings.Weight = readInteger("TexturizeWeight", settings.Weight);
    settings.Invert = readInteger("TexturizeInvert", settings.Invert);
    settings.FitMode = readInteger("TexturizeFitMode", settings.FitMode);
    settings.NoClose = readInteger("TexturizeNoClose", settings.NoClose);
    settings.Folder = INIRead(kFile, kFolders, "TexturizeFolder", AppFolder());
    skipErrors([&] { settings.File = integerOf(numberIn(kFolders, "TexturizeFile", "<None>")); });
    return settings;
}

void SaveTexturizeSettings(const TexturizeSettings& settings) {
    const ProfileValue values[] = {{kForms, "TexturizeTop", textOf(settings.place.Top)},
                                   {kForms, "TexturizeLeft", textOf(settings.place.Left)},
                                   {kFolders, "TexturizeFolder", settings.Folder},
                                   {kFolders, "TexturizeFile", std::to_string(settings.File)},
                                   option("TexturizeWeight", settings.Weight),
                                   option("TexturizeInvert", settings.Invert),
                                   option("TexturizeFitMode", settings.FitMode),
                                   option("TexturizeNoClose", settings.NoClose)};
    INIWrite(kFile, values);
}

ResizeSettings LoadResizeSettings() {
    ResizeSettings settings;
    settings.AspectRatio = readInteger("ResizeAspectRatio", settings.AspectRatio);
    settings.Resample = readInteger("ResizeResample", settings.Resample);
    return settings;
}

void SaveResizeSettings(const ResizeSettings& settings) {
    const ProfileValue values[] = {option("ResizeAspectRatio", settings.AspectRatio),
                                   option("ResizeResample", settings.Resample)};
    INIWrite(kFile, values);
}

}  // namespace mobrel
