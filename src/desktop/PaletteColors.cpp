// SPDX-License-Identifier: MIT
#include "desktop/PaletteColors.hpp"

#include <QGuiApplication>
#include <QPalette>

#include "desktop/QtValues.hpp"

namespace mobrel {

namespace {

QColor paletteColor(const QPalette& palette, SystemColor index) {
    switch (index) {
        case SystemColor::Window:
            return palette.color(QPalette::Active, QPalette::Base);
        case SystemColor::WindowText:
            return palette.color(QPalette::Active, QPalette::Text);
        case SystemColor::ApplicationWorkspace:
        case SystemColor::ButtonShadow:
            return palette.color(QPalette::Active, QPalette::Dark);
        case SystemColor::Highlight:
            return palette.color(QPalette::Active, QPalette::Highlight);
        case SystemColor::HighlightText:
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        // Controls stand on windows in it, so it is what Qt paints windows with, and not buttons.
        case SystemColor::ButtonFace:
            return palette.color(QPalette::Active, QPalette::Window);
        case SystemColor::ButtonText:
            return palette.color(QPalette::Active, QPalette::WindowText);
        case SystemColor::GrayText:
            return palette.color(QPalette::Disabled, QPalette::Text);
        case SystemColor::ButtonHighlight:
            return palette.color(QPalette::Active, QPalette::Light);
        case SystemColor::DarkShadow3D:
            return palette.color(QPalette::Active, QPalette::Shadow);
        case SystemColor::Light3D:
            return palette.color(QPalette::Active, QPalette::Midlight);
        case SystemColor::InfoText:
            return palette.color(QPalette::Active, QPalette::ToolTipText);
        case SystemColor::InfoBackground:
            return palette.color(QPalette::Active, QPalette::ToolTipBase);
    }
    return Qt::black;
}

}  // namespace

Color PaletteColors::color(SystemColor index) const {
    return coreColor(paletteColor(QGuiApplication::palette(), index));
}

}  // namespace mobrel
