// SPDX-License-Identifier: MIT
// The slider control: a knob on a rail, which always stands at a whole number.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/base/Event.hpp"
#include "platform/control/Control.hpp"
#include "platform/control/ControlPicture.hpp"
#include "platform/control/PropertyBag.hpp"
#include "platform/control/WheelTurns.hpp"
#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

/// Horizontal has the minimum at the left, Vertical at the bottom.
enum class SliderOrientation : std::int32_t { Horizontal = 0, Vertical = 1 };

/// The edge around the rail, or a picture in its place. Other numbers draw no edge.
enum class SliderRail : std::int32_t {
    Sunken = 0,
    Raised = 1,
    SunkenOuter = 2,
    RaisedInner = 3,
    NoEdge = 4,
    Picture = 99,
};

class zenSlider : public Control {
 public:
    using Picture = std::shared_ptr<const ControlPicture>;

    /// When false, the user's input is ignored. It looks the same.
    bool Enabled() const noexcept { return m_enabled; }
    void setEnabled(bool enabled) noexcept { m_enabled = enabled; }

    /// A colour property, which may name a system colour.
    std::uint32_t BackColor() const noexcept { return m_backColor; }
    void setBackColor(std::uint32_t color);

    std::int32_t Max() const noexcept { return m_max; }
    /// Error 380 unless it is above Min. The value and the knob stay.
    void setMax(std::int32_t value);

    std::int32_t Min() const noexcept { return m_min; }
    /// Moves Value to the new minimum. Error 380 unless it is below Max.
    void setMin(std::int32_t value);

    std::int32_t Value() const noexcept { return m_value; }
    /// Raises ValueChanged when it changes, then ArrivedLast at Max and ArrivedFirst at Min.
    /// Error 380 outside Min to Max.
    void setValue(std::int32_t value);

    SliderOrientation Orientation() const noexcept { return m_orientation; }
    void setOrientation(SliderOrientation orientation);

    SliderRail RailStyle() const noexcept { return m_railStyle; }
    void setRailStyle(SliderRail style);

    /// The knob's picture, one picture pixel a design pixel as in the rail's, so that both fit the lines
    /// around them at every display scale; null is the knob that the slider draws itself.
    const Picture& SliderIcon() const noexcept { return m_sliderIcon; }
    void setSliderIcon(Picture picture);

    /// What SliderRail::Picture shows.
    const Picture& RailPicture() const noexcept { return m_railPicture; }
    void setRailPicture(Picture picture);

    /// Kept and stored; no tip is ever shown.
    bool ShowValueTip() const noexcept { return m_showValueTip; }
    void setShowValueTip(bool show) noexcept { m_showValueTip = show; }

    Event<> Click;
    Event<> ArrivedFirst;
    Event<> ArrivedLast;
    Event<> ValueChanged;
    /// With the keys held, as a sum of ShiftState.
    Event<std::int16_t&> MouseDown;
    Event<std::int16_t&> MouseUp;

    void load(const PropertyBag& bag);
    void save(PropertyBag& bag) const;

    /// Where knob and rail stand, in device pixels; the knob's place is rounded.
    Rect knobRect() const;
    const Rect& railRect() const noexcept { return m_rail; }

    void pointerPressed(const PointerInput& input) override;
    void pointerMoved(const PointerInput& input) override;
    void pointerReleased(const PointerInput& input) override;
    /// The second press of two is a press like any other.
    void pointerDoubleClicked(const PointerInput& input) override { pointerPressed(input); }
    /// A step a notch, upwards and to the right to greater values.
    void wheelTurned(const WheelInput& input) override;
    /// Arrows: a step. Page keys: a tenth of the range. Home and End: Min and Max.
    bool keyPressed(const KeyInput& input) override;
    void focusChanged(bool hasFocus) override;
    void appearanceChanged() override { repaint(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::Slider; }
    std::string accessibleValue() const override;
    std::optional<AccessibleRange> accessibleRange() const override;
    /// Acts as a user's change; goes to the nearer end when it is out of range.
    void setAccessibleValue(std::int32_t value) override { changeByUser(value); }

 protected:
    void hostChanged() override { layOut(); }
    void sizeChanged() override { layOut(); }

 private:
    static constexpr int kPictureMargin = 2;  // before and behind the rail picture

    bool isHorizontal() const noexcept { return m_orientation == SliderOrientation::Horizontal; }
    bool showsRailPicture() const noexcept {
        return m_railStyle == SliderRail::Picture && m_railPicture != nullptr;
    }
    int knobWidth() const;
    int knobHeight() const;
    int railPictureWidth() const { return scaled(m_railPicture->pixels.width()); }
    int railPictureHeight() const { return scaled(m_railPicture->pixels.height()); }
    /// How far the knob's left or top can go.
    double travel() const;

    // zenSlider_layout.cpp
    void layOut();
    void requestFittingSize();
    void placeAcross();
    void placeAlong(std::int32_t value);
    void placeRail();
    void home();
    std::int32_t valueUnderKnob() const;

    // zenSlider_draw.cpp
    void repaint();
    void drawRail(DeviceContext& target) const;
    void drawRailPicture(DeviceContext& target) const;
    void drawKnob(DeviceContext& target) const;

    // zenSlider_input.cpp
    void dragTo(const PointerInput& input);
    void changeByUser(std::int64_t value);
    void showFocus(bool isShown);

    bool m_isDragging = false;
    float m_dX = 0;  // where the knob is held
    float m_dY = 0;
    float m_left = 0;  // the knob's place
    float m_top = 0;
    Rect m_rail;
    std::int64_t m_range = 10;  // holds the widest pair of Min and Max
    std::int32_t m_previousValue = 0;

    bool m_enabled = true;
    SliderOrientation m_orientation = SliderOrientation::Vertical;
    SliderRail m_railStyle = SliderRail::Sunken;
    bool m_showValueTip = true;
    std::int32_t m_min = 0;
    std::int32_t m_max = 10;
    std::int32_t m_value = 0;
    std::uint32_t m_backColor = systemColorValue(SystemColor::ButtonFace);
    Picture m_sliderIcon;
    Picture m_railPicture;

    bool m_showsFocus = false;
    WheelTurns m_turns;
};

}  // namespace mobrel
