// SPDX-License-Identifier: MIT
#include "controls/frmValueTip.hpp"

#include <utility>

#include "platform/drawing/SystemColors.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel {

namespace {

// Design pixels between the frame and the text.
constexpr int kBesideText = 3;
constexpr int kAboveText = 1;

/// In the user's own size.
TextFont tipFont() {
    return {.family = "Tahoma"};
}

}  // namespace

void frmValueTip::setLblTip(std::string text) {
    if (m_text == text) return;
    m_text = std::move(text);
    fitToText();
    if (host() != nullptr) host()->accessibleChanged();
}

void frmValueTip::sizeChanged() {
    // What asked for this size paints it.
    if (!m_isAskingForSize) fitToText();
}

void frmValueTip::fitToText() {
    if (host() == nullptr) return;
    const int wide = textWidth(m_text, tipFont(), scale()) + 2 * (lineWidth() + scaled(kBesideText));
    const int high = lineHeight(tipFont(), scale()) + 2 * (lineWidth() + scaled(kAboveText));
    if (width() != wide || height() != high) {
        m_isAskingForSize = true;
        host()->requestSize(wide, high);
        m_isAskingForSize = false;
    }
    paint();
}

void frmValueTip::paint() {
    auto target = image();
    if (!target) return;
    const Rect all{0, 0, width(), height()};
    target->FillRect(all, GetSysColor(SystemColor::InfoBackground));
    DrawTextA(*target, all, m_text, tipFont(), scale(), GetSysColor(SystemColor::InfoText),
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    target->DrawEdge(all, Edge::RaisedOuter, lineWidth());
    showAll();
}

}  // namespace mobrel
