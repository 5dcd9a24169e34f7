// SPDX-License-Identifier: MIT
#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

namespace {

const SystemColors* installed = nullptr;

Color classicColor(SystemColor index) {
    switch (index) {
        case SystemColor::Window:
        case SystemColor::HighlightText:
        case SystemColor::ButtonHighlight:
            return rgb(255, 255, 255);
        case SystemColor::WindowText:
        case SystemColor::ButtonText:
        case SystemColor::InfoText:
            return rgb(0, 0, 0);
        case SystemColor::ApplicationWorkspace:
        case SystemColor::ButtonShadow:
        case SystemColor::GrayText:
            return rgb(128, 128, 128);
        case SystemColor::Highlight:
            return rgb(10, 36, 106);
        case SystemColor::ButtonFace:
        case SystemColor::Light3D:
            return rgb(212, 208, 200);
        case SystemColor::DarkShadow3D:
            return rgb(64, 64, 64);
        case SystemColor::InfoBackground:
            return rgb(255, 255, 225);
    }
    return 0;
}

}  // namespace

void setSystemColors(const SystemColors* colors) {
    installed = colors;
}

Color GetSysColor(SystemColor index) {
    return installed != nullptr ? installed->color(index) : classicColor(index);
}

Color OleTranslateColor(std::uint32_t value) {
    constexpr std::uint32_t kIsSystem = 0x80000000;
    if ((value & kIsSystem) == 0) return value & 0x00FFFFFF;
    return GetSysColor(static_cast<SystemColor>(value & ~kIsSystem));
}

}  // namespace mobrel
