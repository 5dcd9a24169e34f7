// SPDX-License-Identifier: MIT
#include "controls/ucCoolListProperties.hpp"

#include <limits>
#include <string_view>

namespace mobrel {

namespace {

using Picture = std::shared_ptr<const ControlPicture>;

/// Calls visit(key, property) for each property; for a choice also with its last one.
template <typename Properties, typename Visit>
void forEachProperty(Properties& p, const Visit& visit) {
    visit("Alignment", p.Alignment, ListAlignment::Right);
    visit("Appearance", p.Appearance, ListAppearance::ThreeD);
    visit("BackNormal", p.BackNormal);
    visit("BackSelected", p.BackSelected);
    visit("BackSelectedG1", p.BackSelectedG1);
    visit("BackSelectedG2", p.BackSelectedG2);
    visit("BorderStyle", p.BorderStyle, ListBorder::Single);
    visit("BoxBorder", p.BoxBorder);
    visit("BoxOffset", p.BoxOffset);
    visit("BoxRadius", p.BoxRadius);
    visit("Enabled", p.Enabled);
    visit("Focus", p.Focus);
    visit("Font", p.Font);
    visit("FontNormal", p.FontNormal);
    visit("FontSelected", p.FontSelected);
    visit("HoverSelection", p.HoverSelection);
    visit("ItemHeight", p.ItemHeight);
    visit("ItemHeightAuto", p.ItemHeightAuto);
    visit("ItemOffset", p.ItemOffset);
    visit("ItemTextLeft", p.ItemTextLeft);
    visit("MouseIcon", p.MouseIcon);
    visit("MousePointer", p.MousePointer);
    visit("OrderType", p.OrderType, ListOrder::Descending);
    visit("SelectionPicture", p.SelectionPicture);
    visit("SelectMode", p.SelectMode, ListSelectMode::Multiple);
    visit("SelectModeStyle", p.SelectModeStyle, ListLook::Picture);
    visit("WordWrap", p.WordWrap);
}

struct Reader {
    const PropertyBag& bag;

    void operator()(std::string_view key, std::uint32_t& color) const { color = bag.readColor(key, color); }
    void operator()(std::string_view key, bool& value) const { value = bag.readBool(key, value); }
    void operator()(std::string_view key, TextFont& font) const { font = bag.readFont(key, font); }
    void operator()(std::string_view key, Picture& picture) const { picture = bag.readPicture(key); }
    void operator()(std::string_view key, std::int16_t& size) const {
        (*this)(key, size, std::numeric_limits<std::int16_t>::max());
    }
    template <typename Number>
    void operator()(std::string_view key, Number& number, Number last) const {
        const std::int32_t value = bag.readNumber(key, static_cast<std::int32_t>(number));
        if (value >= 0 && value <= static_cast<std::int32_t>(last)) number = static_cast<Number>(value);
    }
};

struct Writer {
    PropertyBag& bag;

    void operator()(std::string_view key, std::uint32_t color) const { bag.writeColor(key, color); }
    void operator()(std::string_view key, bool value) const { bag.writeBool(key, value); }
    void operator()(std::string_view key, const TextFont& font) const { bag.writeFont(key, font); }
    void operator()(std::string_view key, const Picture& picture) const { bag.writePicture(key, picture); }
    void operator()(std::string_view key, std::int16_t size) const { bag.writeNumber(key, size); }
    template <typename Choice>
    void operator()(std::string_view key, Choice choice, Choice /*last*/) const {
        bag.writeNumber(key, static_cast<std::int32_t>(choice));
    }
};

}  // namespace

ucCoolListProperties ucCoolListProperties::read(const PropertyBag& bag) {
    ucCoolListProperties properties;
    forEachProperty(properties, Reader{bag});
    return properties;
}

void ucCoolListProperties::write(PropertyBag& bag) const {
    forEachProperty(*this, Writer{bag});
}

}  // namespace mobrel
