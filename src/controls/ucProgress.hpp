// SPDX-License-Identifier: MIT
// The progress bar of the main window: flat, and painted at once, also inside long work.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "platform/base/Event.hpp"
#include "platform/control/Control.hpp"
#include "platform/control/PropertyBag.hpp"
#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

/// The border, as a part of the control's own image. Any other number draws none.
enum class ProgressBorder : std::int32_t { None = 0, Thin = 1, Sunken = 2 };

class ucProgress : public Control {
 public:
    ProgressBorder BorderStyle() const noexcept { return m_borderStyle; }
    void setBorderStyle(ProgressBorder style);

    /// Colour properties, which may name system colours: the empty part, and the bar.
    std::uint32_t BackColor() const noexcept { return m_backColor; }
    void setBackColor(std::uint32_t color);
    std::uint32_t ForeColor() const noexcept { return m_foreColor; }
    void setForeColor(std::uint32_t color);

    /// When false, the mouse is ignored.
    bool Enabled() const noexcept { return m_enabled; }
    void setEnabled(bool enabled) noexcept { m_enabled = enabled; }

    std::int32_t Max() const noexcept { return m_max; }
    /// The value of the full bar; below 1 counts as 1. The bar follows at the next value or size.
    void setMax(std::int32_t value) noexcept { m_max = value < 1 ? 1 : value; }

    std::int32_t Value() const noexcept { return m_value; }
    /// May be above Max. Paints only when the bar's width in pixels changes.
    void setValue(std::int32_t value) {
        m_value = value;
        if (barWidth() != m_paintedWidth) followValue();
    }

    Event<> Click;
    /// Button, held keys as a sum of ShiftState, and the place inside the border.
    Event<std::int16_t, std::int16_t, float, float> MouseDown;
    Event<std::int16_t, std::int16_t, float, float> MouseMove;
    Event<std::int16_t, std::int16_t, float, float> MouseUp;

    void load(const PropertyBag& bag);
    void save(PropertyBag& bag) const;

    void pointerPressed(const PointerInput& input) override;
    void pointerMoved(const PointerInput& input) override;
    void pointerReleased(const PointerInput& input) override;
    void appearanceChanged() override { repaint(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::ProgressBar; }
    /// Whole percents.
    std::string accessibleValue() const override;
    std::optional<AccessibleRange> accessibleRange() const override;

 protected:
    void hostChanged() override { repaint(); }
    void sizeChanged() override;

 private:
    /// In pixels; wider than the control for a value above Max.
    std::int64_t barWidth() const noexcept { return std::int64_t{m_inner.width()} * m_value / m_max; }
    /// Value, as far as the bar can show it.
    std::int32_t shownValue() const noexcept { return std::clamp(m_value, 0, m_max); }
    void followValue();
    void repaint();
    void paintBar(DeviceContext& target);
    float insideX(const PointerInput& input) const { return input.x - static_cast<float>(m_inner.left); }
    float insideY(const PointerInput& input) const { return input.y - static_cast<float>(m_inner.top); }

    ProgressBorder m_borderStyle = ProgressBorder::Sunken;
    std::uint32_t m_backColor = systemColorValue(SystemColor::ButtonFace);
    std::uint32_t m_foreColor = systemColorValue(SystemColor::Highlight);
    bool m_enabled = true;
    std::int32_t m_max = 100;
    std::int32_t m_value = 0;

    Rect m_inner;  // inside the border
    std::int64_t m_paintedWidth = 0;
};

}  // namespace mobrel
