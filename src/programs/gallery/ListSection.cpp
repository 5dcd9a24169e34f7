// SPDX-License-Identifier: MIT
#include <array>

#include "controls/ucCoolList.hpp"
#include "desktop/OwningControlWidget.hpp"
#include "platform/base/Numbers.hpp"
#include "platform/base/RuntimeError.hpp"
#include "programs/gallery/Layout.hpp"
#include "programs/gallery/Pictures.hpp"
#include "programs/gallery/Sections.hpp"

namespace mobrel::gallery {

namespace {

/// Four icons of 16 by 16 design pixels: discs in four colours.
class Discs final : public ImageList {
 public:
    explicit Discs(double scale) : m_scale(scale) {}

    void draw(DeviceContext& target, int x, int y, int index, ImageStyle /*style*/) const override {
        constexpr std::array<Color, 4> kColors = {0x323CC8, 0x1EA0E6, 0x469646, 0xBE643C};
        if (index < 1 || index > static_cast<int>(kColors.size())) {
            throw RuntimeError{ErrorNumber::InvalidPropertyIndex};
        }
        const Color color = kColors[static_cast<std::size_t>(index - 1)];
        const int first = roundInt(2 * m_scale);
        const int end = roundInt(14 * m_scale);
        target.RoundRect({x + first, y + first, x + end, y + end}, end - first, end - first, 0x282828, color);
    }
    int imageHeight() const override { return roundInt(16 * m_scale); }

 private:
    double m_scale;
};

OwningControlWidget<ucCoolList>* makeList(const ucCoolListProperties& properties) {
    auto* const widget = new OwningControlWidget<ucCoolList>;
    widget->setFixedSize(170, 150);
    ucCoolList& list = widget->owned();
    list.setProperties(properties);
    list.SetImageList(std::make_shared<Discs>(widget->devicePixelRatioF()));
    constexpr std::array kTexts = {"Amber", "Birch bark", "Cobalt",         "Dune",   "Ember",
                                   "Fern",  "Granite",    "Harbour & quay", "Indigo", "Juniper"};
    for (std::size_t i = 0; i < kTexts.size(); ++i) {
        const auto icon = static_cast<std::int16_t>(i % 4 + 1);
        list.AddItem(kTexts[i], icon, icon);
    }
    list.setListIndex(1);
    return widget;
}

ucCoolListProperties listLook(ListLook look) {
    ucCoolListProperties properties;
    properties.SelectModeStyle = look;
    properties.WordWrap = false;
    properties.ItemHeightAuto = false;
    properties.ItemHeight = 20;
    properties.ItemTextLeft = 20;
    properties.ItemOffset = 1;
    properties.SelectionPicture = rowPicture();
    if (look == ListLook::Box) properties.BoxRadius = 8;
    // A text that can also be read at the end of the gradient.
    if (look == ListLook::VerticalGradient || look == ListLook::HorizontalGradient)
        properties.FontSelected = properties.FontNormal;
    if (look == ListLook::Bold) properties.FontSelected = properties.FontNormal;
    return properties;
}

}  // namespace

void addLists(QGridLayout& grid) {
    constexpr std::array kLooks = {
        "Solid",  "Tinted with the icon", "Vertical gradient", "Horizontal gradient", "Rounded box", "Bold",
        "Picture"};
    for (int i = 0; i < static_cast<int>(kLooks.size()); ++i) {
        auto* const list = makeList(listLook(static_cast<ListLook>(i)));
        grid.addWidget(captioned(kLooks[static_cast<std::size_t>(i)], list), i / 4, i % 4);
    }
    ucCoolListProperties several = listLook(ListLook::Solid);
    several.SelectMode = ListSelectMode::Multiple;
    auto* const multiple = makeList(several);
    for (const int item : {0, 2, 3}) multiple->owned().setItemSelected(item, true);
    showFocused(*multiple, multiple->owned());
    grid.addWidget(captioned("Several rows, with the keyboard", multiple), 1, 3);

    ucCoolListProperties wrapped;
    wrapped.ItemHeightAuto = false;
    wrapped.ItemHeight = 34;
    wrapped.ItemTextLeft = 20;
    for (const ListAlignment alignment : {ListAlignment::Left, ListAlignment::Center, ListAlignment::Right}) {
        wrapped.Alignment = alignment;
        auto* const list = makeList(wrapped);
        list->owned().setItemText(0, "A text that takes a second line");
        constexpr std::array kNames = {"Wrapped, left", "Wrapped, centred", "Wrapped, right"};
        const auto place = static_cast<int>(alignment);
        grid.addWidget(captioned(kNames[static_cast<std::size_t>(place)], list), 2, place);
    }
    ucCoolListProperties hover = listLook(ListLook::Solid);
    hover.HoverSelection = true;
    grid.addWidget(captioned("Follows the mouse", makeList(hover)), 2, 3);
}

}  // namespace mobrel::gallery
