// SPDX-License-Identifier: MIT
// The settings file Mobrel.ini, one plain struct a form.
#pragma once

#include <cstdint>
#include <string>

namespace mobrel {

enum class WindowState : std::int16_t { Normal = 0, Minimised = 1, Maximised = 2 };

/// A window's outer place and size in twips.
struct WindowPlace {
    float Width = 0;
    float Height = 0;
    float Top = 0;
    float Left = 0;
};

struct MainSettings {
    WindowPlace place;
    WindowState windowState = WindowState::Normal;
    std::string LastPath;
    bool DialogPreview = false;
    bool DialogFitMode = false;
    std::int16_t DialogJPEGquality = 0;
};

/// Writes the main window's keys. They are never read: the window always starts in its designed size.
/// The place is only written for a window in its normal state.
void SaveMainSettings(const MainSettings& settings);

}  // namespace mobrel
