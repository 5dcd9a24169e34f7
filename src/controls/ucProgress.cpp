// SPDX-License-Identifier: MIT
#include "controls/ucProgress.hpp"

#include <algorithm>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

struct Border {
    Edge edge = Edge::None;
    int lines = 0;  // how thick it is
};

Border borderOf(ProgressBorder style) {
    switch (style) {
        case ProgressBorder::Thin:
            return {Edge::SunkenOuter, 1};
        case ProgressBorder::Sunken:
            return {Edge::Sunken, 2};
        case ProgressBorder::None:
            break;
    }
    return {};
}

}  // namespace

void ucProgress::setBorderStyle(ProgressBorder style) {
    m_borderStyle = style;
    sizeChanged();
}

void ucProgress::setBackColor(std::uint32_t color) {
    m_backColor = color;
    repaint();
}

void ucProgress::setForeColor(std::uint32_t color) {
    m_foreColor = color;
    repaint();
}

void ucProgress::load(const PropertyBag& bag) {
    m_borderStyle = ProgressBorder{bag.readNumber("BorderStyle", 2)};
    m_backColor = bag.readColor("BackColor", systemColorValue(SystemColor::ButtonFace));
    m_foreColor = bag.readColor("ForeColor", systemColorValue(SystemColor::Highlight));
    setMax(bag.readNumber("Max", 100));
    m_enabled = bag.readBool("Enabled", true);
    sizeChanged();
}

void ucProgress::save(PropertyBag& bag) const {
    bag.writeNumber("BorderStyle", static_cast<std::int32_t>(m_borderStyle));
    bag.writeColor("BackColor", m_backColor);
    bag.writeColor("ForeColor", m_foreColor);
    bag.writeNumber("Max", m_max);
    bag.writeBool("Enabled", m_enabled);
}

void ucProgress::sizeChanged() {
    const int border = borderOf(m_borderStyle).lines * lineWidth();
    m_inner = {border, border, std::max(width() - border, border), std::max(height() - border, border)};
    repaint();
}

void ucProgress::repaint() {
    auto target = image();
    if (!target) return;
    target->DrawEdge(bounds(), borderOf(m_borderStyle).edge, lineWidth());
    paintBar(*target);
    showAll();
}

/// The bar's end moved: only what lies between its old and its new place looks different.
void ucProgress::followValue() {
    auto target = image();
    if (!target) return;
    const std::int64_t before = m_paintedWidth;
    paintBar(*target);
    const auto [left, right] = std::minmax(before, m_paintedWidth);
    const auto onImage = [&](std::int64_t width) {
        return m_inner.left + std::clamp(clampInt(width), 0, m_inner.width());
    };
    showChange({onImage(left), m_inner.top, onImage(right), m_inner.bottom});
    tellAccessible();
}

void ucProgress::paintBar(DeviceContext& target) {
    m_paintedWidth = barWidth();
    DeviceContext inner = target.part(m_inner);
    const int end = clampInt(m_paintedWidth);
    inner.FillRect({0, 0, end, inner.height()}, OleTranslateColor(m_foreColor));
    inner.FillRect({end, 0, inner.width(), inner.height()}, OleTranslateColor(m_backColor));
}

void ucProgress::pointerPressed(const PointerInput& input) {
    if (!m_enabled) return;
    captureMouse();
    MouseDown.raise(input.button, input.shift, insideX(input), insideY(input));
}

void ucProgress::pointerMoved(const PointerInput& input) {
    if (m_enabled) MouseMove.raise(input.button, input.shift, insideX(input), insideY(input));
}

void ucProgress::pointerReleased(const PointerInput& input) {
    if (!m_enabled) return;
    const bool isInside = bounds().contains(input.x, input.y);
    const auto life = this->life();
    MouseUp.raise(input.button, input.shift, insideX(input), insideY(input));
    if (!life.expired() && isInside && input.button != MouseButton::kMiddle) Click.raise();
}

std::string ucProgress::accessibleValue() const {
    return std::to_string(std::int64_t{100} * shownValue() / m_max) + " %";
}

std::optional<AccessibleRange> ucProgress::accessibleRange() const {
    return AccessibleRange{0, m_max, 1, shownValue()};
}

}  // namespace mobrel
