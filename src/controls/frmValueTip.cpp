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
    tellAccessible();
}

void frmValueTip::fitToText() {
    if (host() == nullptr) return;
    const int wide = textWidth(m_text, tipFont(), scale()) + 2 * (lineWidth() + scaled(kBesideText));
    const int high = lineHeight(tipFont(), scale()) + 2 * (lineWidth() + scaled(kAboveText));
    requestSize(wide, high);
    paint();
}

void frmValueTip::paint() {
    auto target = image();
    if (!target) return;
    target->FillRect(bounds(), GetSysColor(SystemColor::InfoBackground));
    DrawTextA(*target, bounds(), m_text, tipFont(), scale(), GetSysColor(SystemColor::InfoText),
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    target->DrawEdge(bounds(), Edge::RaisedOuter, lineWidth());
    showAll();
}

}  // namespace mobrel
