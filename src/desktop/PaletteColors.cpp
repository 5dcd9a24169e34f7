// SPDX-License-Identifier: MIT
#include "desktop/PaletteColors.hpp"

#include <QGuiApplication>
#include <QPalette>
#include <utility>

#include "desktop/QtValues.hpp"
#include "platform/base/Lookup.hpp"

namespace mobrel {

namespace {

using enum SystemColor;
constexpr std::pair<SystemColor, QPalette::ColorRole> kRoles[] = {
    {Window, QPalette::Base},
    {WindowText, QPalette::Text},
    {ApplicationWorkspace, QPalette::Dark},
    {ButtonShadow, QPalette::Dark},
    {Highlight, QPalette::Highlight},
    {HighlightText, QPalette::HighlightedText},
    // Controls stand on windows in it, so it is what Qt paints windows with, and not buttons.
    {ButtonFace, QPalette::Window},
    {ButtonText, QPalette::WindowText},
    {GrayText, QPalette::Text},
    {ButtonHighlight, QPalette::Light},
    {DarkShadow3D, QPalette::Shadow},
    {Light3D, QPalette::Midlight},
    {InfoText, QPalette::ToolTipText},
    {InfoBackground, QPalette::ToolTipBase},
};

}  // namespace

Color PaletteColors::color(SystemColor index) const {
    const auto role = valueIn(kRoles, index, QPalette::NoRole);
    if (role == QPalette::NoRole) return 0;
    const auto group = index == GrayText ? QPalette::Disabled : QPalette::Active;
    return coreColor(QGuiApplication::palette().color(group, role));
}

}  // namespace mobrel
