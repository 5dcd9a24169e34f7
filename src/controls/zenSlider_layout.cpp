// SPDX-License-Identifier: MIT
// Where knob and rail of the slider stand. A step that fails is skipped alone: the others run.
#include <algorithm>

#include "controls/zenSlider.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kKnobSide = 16;
constexpr int kRailThickness = 4;

}  // namespace

int zenSlider::knobWidth() const {
    return scaled(m_sliderIcon != nullptr ? m_sliderIcon->pixels.width() : kKnobSide);
}

int zenSlider::knobHeight() const {
    return scaled(m_sliderIcon != nullptr ? m_sliderIcon->pixels.height() : kKnobSide);
}

double zenSlider::travel() const {
    return isHorizontal() ? 1.0 * width() - knobWidth() : 1.0 * height() - knobHeight();
}

Rect zenSlider::knobRect() const {
    // Farther out there is nothing to see, and any place has a number.
    const int left = roundInt(std::clamp(double{m_left}, -1.0 * knobWidth(), 1.0 * width()));
    const int top = roundInt(std::clamp(double{m_top}, -1.0 * knobHeight(), 1.0 * height()));
    return {left, top, left + knobWidth(), top + knobHeight()};
}

void zenSlider::layOut() {
    requestFittingSize();
    placeAcross();
    placeAlong(m_value);
    skipErrors([&] { placeRail(); });
    repaint();
}

/// Across the rail, the size is that of the knob or the rail picture; along it the window decides, unless
/// there is a picture.
void zenSlider::requestFittingSize() {
    if (host() == nullptr) return;
    int outerWidth = width();
    int outerHeight = height();
    if (showsRailPicture()) {
        const int margins = 2 * scaled(kPictureMargin);
        // kept: a vertical rail takes its length from the picture's height and its thickness from the width.
        outerWidth =
            isHorizontal() ? railPictureWidth() + margins : std::max(railPictureWidth(), knobWidth());
        outerHeight =
            isHorizontal() ? std::max(railPictureHeight(), knobHeight()) : railPictureHeight() + margins;
    } else {
        if (!isHorizontal() || outerWidth == 0) outerWidth = knobWidth();
        if (isHorizontal() || outerHeight == 0) outerHeight = knobHeight();
    }
    requestSize(outerWidth, outerHeight);
}

/// The knob lies on the middle of a rail picture, and else fills the control's thickness.
void zenSlider::placeAcross() {
    const bool isCentred = showsRailPicture();
    if (isHorizontal()) {
        m_top = isCentred ? static_cast<float>((height() - knobHeight()) * 0.5) : 0.0F;
    } else {
        m_left = isCentred ? static_cast<float>((width() - knobWidth()) * 0.5) : 0.0F;
    }
}

void zenSlider::placeAlong(std::int32_t value) {
    if (m_range == 0) return;  // no place is that of a value: the knob stays
    const double offset =
        travel() * static_cast<double>(std::int64_t{value} - m_min) / static_cast<double>(m_range);
    if (isHorizontal()) {
        m_left = static_cast<float>(offset);
    } else {
        m_top = static_cast<float>(travel() - offset);
    }
}

/// A groove from the knob's centre at one end of its travel to that at the other, and half of its own
/// thickness beyond.
void zenSlider::placeRail() {
    const double thickness = scaled(kRailThickness);
    const double across = (isHorizontal() ? knobHeight() : knobWidth()) - thickness;
    const double along = isHorizontal() ? knobWidth() : knobHeight();
    const int side = roundInt(across * 0.5);
    const int otherSide = roundInt(side + thickness);
    const int start = roundInt(along * 0.5 - thickness * 0.5);
    const int end = roundInt(travel() + start + thickness);
    m_rail = isHorizontal() ? Rect{start, side, end, otherSide} : Rect{side, start, otherSide, end};
}

/// The knob at Min.
void zenSlider::home() {
    m_left = 0;
    m_top = isHorizontal() ? 0.0F : static_cast<float>(std::max(travel(), 0.0));
}

/// The value that the knob is nearest to, ties to the even one.
std::int32_t zenSlider::valueUnderKnob() const {
    const double offset = isHorizontal() ? double{m_left} : travel() - m_top;
    return roundInt(offset / travel() * static_cast<double>(m_range) + m_min);
}

}  // namespace mobrel
