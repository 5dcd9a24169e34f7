// SPDX-License-Identifier: MIT
// Properties of the slider, and what it stores.
#include "controls/zenSlider.hpp"

#include <utility>

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

void zenSlider::setBackColor(std::uint32_t color) {
    m_backColor = color;
    repaint();
}

void zenSlider::setMax(std::int32_t value) {
    if (value <= m_min) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_max = value;
    m_range = std::int64_t{m_max} - m_min;
    // kept: the knob stays where it is, and so may a Value above Max, until Value or the size changes.
    tellAccessible();
}

void zenSlider::setMin(std::int32_t value) {
    if (value >= m_max) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_min = value;
    const auto life = this->life();
    setValue(value);
    if (life.expired()) return;
    m_range = std::int64_t{m_max} - m_min;  // a handler may have set them again
    tellAccessible();
}

void zenSlider::setValue(std::int32_t value) {
    if (value < m_min || value > m_max) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_value = value;
    if (m_value == m_previousValue) return;
    if (!m_isDragging) placeAlong(m_value);
    repaint();
    m_previousValue = m_value;
    tellAccessible();
    // A handler may set Value; what is told then is the Value of that moment. Or it ends the slider.
    const auto life = this->life();
    ValueChanged.raise();
    if (!life.expired() && m_value == m_max) ArrivedLast.raise();
    if (!life.expired() && m_value == m_min) ArrivedFirst.raise();
}

void zenSlider::setOrientation(SliderOrientation orientation) {
    m_orientation = orientation;
    layOut();
}

void zenSlider::setRailStyle(SliderRail style) {
    m_railStyle = style;
    layOut();
}

void zenSlider::setSliderIcon(Picture picture) {
    m_sliderIcon = std::move(picture);
    layOut();
}

void zenSlider::setRailPicture(Picture picture) {
    m_railPicture = std::move(picture);
    layOut();
}

void zenSlider::load(const PropertyBag& bag) {
    m_backColor = bag.readColor("BackColor", systemColorValue(SystemColor::ButtonFace));
    m_enabled = bag.readBool("Enabled", true);
    m_orientation = SliderOrientation{bag.readNumber("Orientation", 1)};
    m_railStyle = SliderRail{bag.readNumber("RailStyle", 0)};
    m_showValueTip = bag.readBool("ShowValueTip", true);
    m_min = bag.readNumber("Min", 0);
    m_max = bag.readNumber("Max", 10);
    m_value = bag.readNumber("Value", 0);
    m_sliderIcon = bag.readPicture("SliderIcon");
    m_railPicture = bag.readPicture("RailPicture");
    m_range = std::int64_t{m_max} - m_min;
    m_previousValue = m_value;
    home();
    layOut();
}

void zenSlider::save(PropertyBag& bag) const {
    bag.writeColor("BackColor", m_backColor);
    bag.writeBool("Enabled", m_enabled);
    bag.writePicture("SliderIcon", m_sliderIcon);
    bag.writeNumber("Orientation", static_cast<std::int32_t>(m_orientation));
    bag.writePicture("RailPicture", m_railPicture);
    bag.writeNumber("RailStyle", static_cast<std::int32_t>(m_railStyle));
    bag.writeBool("ShowValueTip", m_showValueTip);
    bag.writeNumber("Min", m_min);
    bag.writeNumber("Max", m_max);
    bag.writeNumber("Value", m_value);
}

std::string zenSlider::accessibleValue() const {
    return std::to_string(m_value);
}

std::optional<AccessibleRange> zenSlider::accessibleRange() const {
    return AccessibleRange{m_min, m_max, 1, m_value};
}

}  // namespace mobrel
