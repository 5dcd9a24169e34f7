// SPDX-License-Identifier: MIT
// The colours of the user's desktop, under the platform's numbers.
#pragma once

#include <cstdint>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// The numbers that the controls use.
enum class SystemColor : int {
    Window = 5,
    WindowText = 8,
    ApplicationWorkspace = 12,
    Highlight = 13,
    HighlightText = 14,
    ButtonFace = 15,
    ButtonShadow = 16,
    GrayText = 17,
    ButtonText = 18,
    ButtonHighlight = 20,
    DarkShadow3D = 21,
    Light3D = 22,
    InfoText = 23,
    InfoBackground = 24,
};

/// Where system colours come from; a desktop installs one that follows the user's palette.
class SystemColors {
 public:
    virtual ~SystemColors() = default;
    virtual Color color(SystemColor index) const = 0;
};

/// Null goes back to the classic scheme, which also holds without a desktop.
void setSystemColors(const SystemColors* colors);

/// A system colour; one without a number here is black.
Color GetSysColor(SystemColor index);

/// A property value that may name a system colour: with the top bit set, the rest is its number. Anything
/// else is the colour itself.
Color OleTranslateColor(std::uint32_t value);

/// The property value of a system colour.
constexpr std::uint32_t systemColorValue(SystemColor index) {
    return 0x80000000U | static_cast<std::uint32_t>(index);
}

}  // namespace mobrel
