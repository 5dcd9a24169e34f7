// SPDX-License-Identifier: MIT
// What the controls store as their design-time properties.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include "controls/ucCoolListProperties.hpp"
#include "controls/ucProgress.hpp"
#include "controls/zenSlider.hpp"
#include "support/FakePropertyBag.hpp"

namespace mobrel {
namespace {

using test::FakePropertyBag;

using Keys = std::vector<std::string>;

/// A fresh control reads the one bag and writes the other.
template <typename Stored>
void pass(const FakePropertyBag& from, FakePropertyBag& to) {
    Stored control;
    control.load(from);
    control.save(to);
}

template <>
void pass<ucCoolListProperties>(const FakePropertyBag& from, FakePropertyBag& to) {
    ucCoolListProperties::read(from).write(to);
}

/// Gives each property another value that it can have.
void changeAll(FakePropertyBag& bag) {
    std::int32_t different = 10;
    for (auto& [key, value] : bag.values) {
        if (auto* flag = std::get_if<bool>(&value)) *flag = !*flag;
        if (auto* font = std::get_if<TextFont>(&value)) *font = {"Sans", 9, true};
        if (auto* color = std::get_if<std::uint32_t>(&value))
            *color = static_cast<std::uint32_t>(++different);
        if (auto* picture = std::get_if<std::shared_ptr<const ControlPicture>>(&value)) {
            *picture = std::make_shared<const ControlPicture>();
        }
        const bool isOneOfTwo = key == "Appearance" || key == "BorderStyle" || key == "OrderType" ||
                                key == "Orientation" || key == "SelectMode";
        if (auto* number = std::get_if<std::int32_t>(&value)) {
            *number = isOneOfTwo ? int{*number != 1} : *number + 1;
        }
    }
}

TEST(ControlProperties, StandInTheBagInOrder) {
    const Keys list = {"Alignment",      "Appearance",      "BackNormal",   "BackSelected",
                       "BackSelectedG1", "BackSelectedG2",  "BorderStyle",  "BoxBorder",
                       "BoxOffset",      "BoxRadius",       "Enabled",      "Focus",
                       "Font",           "FontNormal",      "FontSelected", "HoverSelection",
                       "ItemHeight",     "ItemHeightAuto",  "ItemOffset",   "ItemTextLeft",
                       "MouseIcon",      "MousePointer",    "OrderType",    "SelectionPicture",
                       "SelectMode",     "SelectModeStyle", "WordWrap"};
    const Keys progress = {"BorderStyle", "BackColor", "ForeColor", "Max", "Enabled"};
    const struct {
        void (*pass)(const FakePropertyBag&, FakePropertyBag&);
        Keys read, written;
        std::map<std::string, FakePropertyBag::Value> defaults;  // those that could be mistaken
    } kRows[] = {
        {pass<ucCoolListProperties>,
         list,
         list,
         {{"BackSelectedG2", 0x80000005U},
          {"BoxBorder", 0x8000000EU},
          {"BoxOffset", 1},
          {"FontNormal", 0x80000008U},
          {"ItemTextLeft", 2}}},
        {pass<ucProgress>,
         progress,
         progress,
         {{"BorderStyle", 2}, {"BackColor", 0x8000000FU}, {"ForeColor", 0x8000000DU}, {"Max", 100}}},
        {pass<zenSlider>,
         {"BackColor", "Enabled", "Orientation", "RailStyle", "ShowValueTip", "Min", "Max", "Value",
          "SliderIcon", "RailPicture"},
         {"BackColor", "Enabled", "SliderIcon", "Orientation", "RailPicture", "RailStyle", "ShowValueTip",
          "Min", "Max", "Value"},
         {{"BackColor", 0x8000000FU}, {"Orientation", 1}, {"Min", 0}, {"Max", 10}}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.read.front());
        const FakePropertyBag empty;
        FakePropertyBag bag;
        row.pass(empty, bag);
        EXPECT_EQ(empty.keysRead, row.read);
        EXPECT_EQ(bag.keysWritten, row.written);
        for (const auto& [key, value] : row.defaults) EXPECT_TRUE(bag.values.at(key) == value) << key;
        changeAll(bag);
        FakePropertyBag again;
        row.pass(bag, again);
        EXPECT_TRUE(again.values == bag.values);
    }
}

TEST(ControlProperties, ANumberThatAPropertyCannotHaveCountsAsNotThere) {
    FakePropertyBag bag;
    bag.values = {{"SelectModeStyle", 7}, {"Alignment", -1}, {"BoxOffset", 70000}, {"Max", 0}};
    const ucCoolListProperties list = ucCoolListProperties::read(bag);
    EXPECT_EQ(std::tuple(list.SelectModeStyle, list.Alignment, list.BoxOffset),
              std::tuple(ListLook::Solid, ListAlignment::Left, 1));
    ucProgress progress;
    progress.load(bag);
    EXPECT_EQ(progress.Max(), 1);
}

}  // namespace
}  // namespace mobrel
