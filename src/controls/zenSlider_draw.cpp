// SPDX-License-Identifier: MIT
// The look of the slider.
#include <algorithm>

#include "controls/zenSlider.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kKnobEdges = 2;    // outer and inner ring
constexpr int kHatchMargin = 1;  // from the edges to the hatch
constexpr int kHatchPeriod = 3;

Edge edgeOf(SliderRail style) {
    switch (style) {
        case SliderRail::Sunken:
            return Edge::Sunken;
        case SliderRail::Raised:
            return Edge::Raised;
        case SliderRail::SunkenOuter:
            return Edge::SunkenOuter;
        case SliderRail::RaisedInner:
            return Edge::RaisedInner;
        case SliderRail::NoEdge:
        case SliderRail::Picture:
            break;
    }
    return Edge::None;
}

/// Ribs that rise to the right: a light and a dark cell, then one of the face.
void drawHatch(DeviceContext& target, const Rect& rect, int cell) {
    const Color light = GetSysColor(SystemColor::ButtonHighlight);
    const Color dark = GetSysColor(SystemColor::ButtonShadow);
    for (int y = rect.top, row = 0; y < rect.bottom; y += cell, ++row) {
        for (int x = rect.left, column = 0; x < rect.right; x += cell, ++column) {
            const int phase = (row + column) % kHatchPeriod;
            if (phase == kHatchPeriod - 1) continue;
            const Rect place{x, y, std::min(x + cell, rect.right), std::min(y + cell, rect.bottom)};
            target.FillRect(place, phase == 0 ? light : dark);
        }
    }
}

}  // namespace

void zenSlider::repaint() {
    auto target = image();
    if (!target) return;
    target->FillRect(bounds(), OleTranslateColor(m_backColor));
    if (m_railStyle == SliderRail::Picture) {
        drawRailPicture(*target);
    } else {
        drawRail(*target);
    }
    if (m_showsFocus) target->DrawFocusRect(bounds(), lineWidth());
    drawKnob(*target);
    showAll();
}

void zenSlider::drawRail(DeviceContext& target) const {
    const int thickness = std::min(m_rail.width(), m_rail.height());
    // Two rings from either side fill the rail, and no more.
    target.DrawEdge(m_rail, edgeOf(m_railStyle), std::max(1, thickness / 4));
}

void zenSlider::drawRailPicture(DeviceContext& target) const {
    if (m_railPicture == nullptr) return;
    const int margin = scaled(kPictureMargin);
    const int left = isHorizontal() ? margin : roundInt((width() - railPictureWidth()) * 0.5);
    const int top = isHorizontal() ? roundInt((height() - railPictureHeight()) * 0.5) : margin;
    drawControlPicture(target, {left, top, left + railPictureWidth(), top + railPictureHeight()},
                       *m_railPicture);
}

void zenSlider::drawKnob(DeviceContext& target) const {
    const Rect knob = knobRect();
    if (m_sliderIcon != nullptr) {
        drawControlPicture(target, knob, *m_sliderIcon);
        return;
    }
    const int line = lineWidth();
    target.FillRect(knob, GetSysColor(SystemColor::ButtonFace));
    target.DrawEdge(knob, Edge::Raised, line);
    drawHatch(target, shrunk(knob, (kKnobEdges + kHatchMargin) * line), line);
}

}  // namespace mobrel
