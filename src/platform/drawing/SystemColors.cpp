// SPDX-License-Identifier: MIT
#include "platform/drawing/SystemColors.hpp"

#include <utility>

#include "platform/base/Lookup.hpp"

namespace mobrel {

namespace {

const SystemColors* installed = nullptr;

constexpr Color kBlack = rgb(0, 0, 0);
constexpr Color kGrey = rgb(128, 128, 128);
constexpr Color kFace = rgb(212, 208, 200);
constexpr Color kWhite = rgb(255, 255, 255);

using enum SystemColor;
constexpr std::pair<SystemColor, Color> kClassicColors[] = {
    {Window, kWhite},
    {HighlightText, kWhite},
    {ButtonHighlight, kWhite},
    {WindowText, kBlack},
    {ButtonText, kBlack},
    {InfoText, kBlack},
    {ApplicationWorkspace, kGrey},
    {ButtonShadow, kGrey},
    {GrayText, kGrey},
    {Highlight, rgb(10, 36, 106)},
    {ButtonFace, kFace},
    {Light3D, kFace},
    {DarkShadow3D, rgb(64, 64, 64)},
    {InfoBackground, rgb(255, 255, 225)},
};

}  // namespace

void setSystemColors(const SystemColors* colors) {
    installed = colors;
}

Color GetSysColor(SystemColor index) {
    return installed != nullptr ? installed->color(index) : valueIn(kClassicColors, index, kBlack);
}

Color OleTranslateColor(std::uint32_t value) {
    constexpr std::uint32_t kIsSystem = 0x80000000;
    if ((value & kIsSystem) == 0) return value & 0x00FFFFFF;
    return GetSysColor(static_cast<SystemColor>(value & ~kIsSystem));
}

}  // namespace mobrel
