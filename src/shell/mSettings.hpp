// SPDX-License-Identifier: MIT
// The settings file Mobrel.ini, one plain struct a form. Forms read in their Load and write in their Unload.
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

/// A window's outer place in twips.
struct WindowCorner {
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

// Check boxes are 0 or 1.

struct FilterSettings {
    WindowCorner place;
    std::int16_t BeforeFit = 1;
    std::int16_t BeforePickColor = 1;
    std::int16_t ResetValues = 0;
    std::int16_t NoClose = 0;
};

struct TexturizeSettings {
    WindowCorner place;
    std::int16_t Weight = 25;
    std::int16_t Invert = 0;
    std::int16_t FitMode = 0;
    std::int16_t NoClose = 0;
    std::string Folder;
    /// The place in the list of textures, -1 for none.
    std::int16_t File = -1;
};

struct ResizeSettings {
    std::int16_t AspectRatio = 1;
    std::int16_t Resample = 1;
};

/// Writes the main window's keys. They are never read: the window always starts in its designed size.
/// The place is only written for a window in its normal state.
void SaveMainSettings(const MainSettings& settings);

// What the file does not have is the default, for a place the form's present one. A wrong file is told, not
// guessed at. Errors: 13 for a text where a number stands, 6 for a number beyond 16 bits.

WindowPlace LoadPanViewSettings(const WindowPlace& present);
void SavePanViewSettings(const WindowPlace& place);

/// kept: nothing writes these keys; they change when somebody edits the file.
FilterSettings LoadFilterSettings(const WindowCorner& present);

/// A text is no error where the place in the list stands: then there is none.
TexturizeSettings LoadTexturizeSettings(const WindowCorner& present);
void SaveTexturizeSettings(const TexturizeSettings& settings);

ResizeSettings LoadResizeSettings();
void SaveResizeSettings(const ResizeSettings& settings);

}  // namespace mobrel
