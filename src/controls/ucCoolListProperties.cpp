// SPDX-License-Identifier: MIT
#include "controls/ucCoolListProperties.hpp"

#include <limits>
#include <string_view>

namespace mobrel {

namespace {

/// A number from 0 up.
template <typename Number>
void readInto(Number& property, const PropertyBag& bag, std::string_view key, std::int32_t greatest) {
    const std::int32_t value = bag.readNumber(key, static_cast<std::int32_t>(property));
    if (value >= 0 && value <= greatest) property = static_cast<Number>(value);
}

void readSize(std::int16_t& property, const PropertyBag& bag, std::string_view key) {
    readInto(property, bag, key, std::numeric_limits<std::int16_t>::max());
}

void readColor(std::uint32_t& property, const PropertyBag& bag, std::string_view key) {
    property = bag.readColor(key, property);
}

void readBool(bool& property, const PropertyBag& bag, std::string_view key) {
    property = bag.readBool(key, property);
}

template <typename Number>
void writeNumber(PropertyBag& bag, std::string_view key, Number property) {
    bag.writeNumber(key, static_cast<std::int32_t>(property));
}

}  // namespace

ucCoolListProperties ucCoolListProperties::read(const PropertyBag& bag) {
    ucCoolListProperties p;
    readInto(p.Alignment, bag, "Alignment", 2);
    readInto(p.Appearance, bag, "Appearance", 1);
    readColor(p.BackNormal, bag, "BackNormal");
    readColor(p.BackSelected, bag, "BackSelected");
    readColor(p.BackSelectedG1, bag, "BackSelectedG1");
    readColor(p.BackSelectedG2, bag, "BackSelectedG2");
    readInto(p.BorderStyle, bag, "BorderStyle", 1);
    readColor(p.BoxBorder, bag, "BoxBorder");
    readSize(p.BoxOffset, bag, "BoxOffset");
    readSize(p.BoxRadius, bag, "BoxRadius");
    readBool(p.Enabled, bag, "Enabled");
    readBool(p.Focus, bag, "Focus");
    p.Font = bag.readFont("Font", p.Font);
    readColor(p.FontNormal, bag, "FontNormal");
    readColor(p.FontSelected, bag, "FontSelected");
    readBool(p.HoverSelection, bag, "HoverSelection");
    readSize(p.ItemHeight, bag, "ItemHeight");
    readBool(p.ItemHeightAuto, bag, "ItemHeightAuto");
    readSize(p.ItemOffset, bag, "ItemOffset");
    readSize(p.ItemTextLeft, bag, "ItemTextLeft");
    p.MouseIcon = bag.readPicture("MouseIcon");
    readSize(p.MousePointer, bag, "MousePointer");
    readInto(p.OrderType, bag, "OrderType", 1);
    p.SelectionPicture = bag.readPicture("SelectionPicture");
    readInto(p.SelectMode, bag, "SelectMode", 1);
    readInto(p.SelectModeStyle, bag, "SelectModeStyle", 6);
    readBool(p.WordWrap, bag, "WordWrap");
    return p;
}

void ucCoolListProperties::write(PropertyBag& bag) const {
    writeNumber(bag, "Alignment", Alignment);
    writeNumber(bag, "Appearance", Appearance);
    bag.writeColor("BackNormal", BackNormal);
    bag.writeColor("BackSelected", BackSelected);
    bag.writeColor("BackSelectedG1", BackSelectedG1);
    bag.writeColor("BackSelectedG2", BackSelectedG2);
    writeNumber(bag, "BorderStyle", BorderStyle);
    bag.writeColor("BoxBorder", BoxBorder);
    writeNumber(bag, "BoxOffset", BoxOffset);
    writeNumber(bag, "BoxRadius", BoxRadius);
    bag.writeBool("Enabled", Enabled);
    bag.writeBool("Focus", Focus);
    bag.writeFont("Font", Font);
    bag.writeColor("FontNormal", FontNormal);
    bag.writeColor("FontSelected", FontSelected);
    bag.writeBool("HoverSelection", HoverSelection);
    writeNumber(bag, "ItemHeight", ItemHeight);
    bag.writeBool("ItemHeightAuto", ItemHeightAuto);
    writeNumber(bag, "ItemOffset", ItemOffset);
    writeNumber(bag, "ItemTextLeft", ItemTextLeft);
    bag.writePicture("MouseIcon", MouseIcon);
    writeNumber(bag, "MousePointer", MousePointer);
    writeNumber(bag, "OrderType", OrderType);
    bag.writePicture("SelectionPicture", SelectionPicture);
    writeNumber(bag, "SelectMode", SelectMode);
    writeNumber(bag, "SelectModeStyle", SelectModeStyle);
    bag.writeBool("WordWrap", WordWrap);
}

}  // namespace mobrel
