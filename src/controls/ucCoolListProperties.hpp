// SPDX-License-Identifier: MIT
// The design-time properties of the list control, with the values they have at first.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/control/ControlPicture.hpp"
#include "platform/control/PropertyBag.hpp"
#include "platform/drawing/SystemColors.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel {

/// The numbers are those of the property bag.
enum class ListAlignment : std::int16_t { Left = 0, Center = 1, Right = 2 };
enum class ListAppearance : std::int16_t { Flat = 0, ThreeD = 1 };
enum class ListBorder : std::int16_t { None = 0, Single = 1 };
enum class ListOrder : std::int16_t { Ascending = 0, Descending = 1 };
enum class ListSelectMode : std::int16_t { Single = 0, Multiple = 1 };

/// The look of a selected row.
enum class ListLook : std::int16_t {
    Solid = 0,
    Tinted = 1,
    VerticalGradient = 2,
    HorizontalGradient = 3,
    Box = 4,
    Bold = 5,
    Picture = 6,
};

/// Colours are property values, as OleTranslateColor takes them; sizes are design pixels.
struct ucCoolListProperties {
    /// Of word-wrapped text.
    ListAlignment Alignment = ListAlignment::Left;
    ListAppearance Appearance = ListAppearance::ThreeD;
    std::uint32_t BackNormal = systemColorValue(SystemColor::Window);
    std::uint32_t BackSelected = systemColorValue(SystemColor::Highlight);
    std::uint32_t BackSelectedG1 = systemColorValue(SystemColor::Highlight);
    std::uint32_t BackSelectedG2 = systemColorValue(SystemColor::Window);
    ListBorder BorderStyle = ListBorder::Single;
    std::uint32_t BoxBorder = systemColorValue(SystemColor::HighlightText);
    /// From the row's edges to the box.
    std::int16_t BoxOffset = 1;
    /// Width and height of the box's corners.
    std::int16_t BoxRadius = 0;
    bool Enabled = true;
    /// Whether the focus rectangle is drawn.
    bool Focus = true;
    TextFont Font;
    std::uint32_t FontNormal = systemColorValue(SystemColor::WindowText);
    std::uint32_t FontSelected = systemColorValue(SystemColor::HighlightText);
    /// The mouse selects rows without a pressed button.
    bool HoverSelection = false;
    /// Counts without ItemHeightAuto, where it is above a line of the font; 0 stands for such a line.
    std::int16_t ItemHeight = 0;
    bool ItemHeightAuto = true;
    /// Indent of icon and text.
    std::int16_t ItemOffset = 0;
    /// From the indent to the text.
    std::int16_t ItemTextLeft = 2;
    std::shared_ptr<const ControlPicture> MouseIcon;
    std::int16_t MousePointer = 0;
    ListOrder OrderType = ListOrder::Ascending;
    std::shared_ptr<const ControlPicture> SelectionPicture;
    ListSelectMode SelectMode = ListSelectMode::Single;
    ListLook SelectModeStyle = ListLook::Solid;
    bool WordWrap = true;

    /// A number that a property cannot have counts as not there.
    static ucCoolListProperties read(const PropertyBag& bag);
    void write(PropertyBag& bag) const;
};

}  // namespace mobrel
