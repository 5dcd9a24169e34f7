// SPDX-License-Identifier: MIT
// What all self-drawn controls have in common, and where their colours and texts come from.
#include "platform/control/Control.hpp"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>
#include <vector>

#include "platform/drawing/SystemColors.hpp"
#include "platform/drawing/TextService.hpp"
#include "support/FakeHost.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::PictureGrid;

class PlainControl : public Control {
 public:
    using Control::scaled;
    using Control::showAll;
    using Control::showChange;

    AccessibleRole accessibleRole() const override { return AccessibleRole::Graphic; }

    int sizeChanges = 0;
    int hostChanges = 0;

 private:
    void sizeChanged() override { ++sizeChanges; }
    void hostChanged() override { ++hostChanges; }
};

TEST(ControlTest, HasAnImageFromOnePixelUp) {
    PlainControl control;
    EXPECT_FALSE(control.image());
    control.showAll();
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{0, 5}, {5, 0}, {-3, 4}}) {
        control.setSize(width, height, 1);
        EXPECT_FALSE(control.image()) << width << ' ' << height;
        EXPECT_GE(control.width(), 0);
    }
    control.setSize(3, 2, 1.25);
    ASSERT_TRUE(control.image());
    EXPECT_EQ(control.image()->width(), 3);
    EXPECT_EQ(control.image()->height(), 2);
    EXPECT_EQ(control.sizeChanges, 4);
}

TEST(ControlTest, KeepsItsImageAtAnotherScaleAndHasANewOneAtAnotherSize) {
    PlainControl control;
    control.setSize(2, 2, 1);
    control.image()->FillRect({0, 0, 2, 2}, 0x332211);
    control.setSize(2, 2, 2);
    EXPECT_EQ(*control.image()->line(1), 0x33);
    control.setSize(2, 3, 2);
    EXPECT_EQ(*control.image()->line(1), 0);
}

TEST(ControlTest, ShowsWhatLiesInsideItsImage) {
    const struct {
        Rect changed;
        std::vector<Rect> shown;
    } kRows[] = {
        {{1, 1, 3, 2}, {{1, 1, 3, 2}}},
        {{-4, -4, 99, 99}, {{0, 0, 6, 4}}},
        {{4, 3, 99, 99}, {{4, 3, 6, 4}}},
        {{6, 0, 9, 4}, {}},
        {{-3, 0, 0, 4}, {}},
        {{0, 4, 6, 9}, {}},
        {{2, 2, 2, 3}, {}},
        {{3, 3, 1, 4}, {}},
    };
    for (const auto& row : kRows) {
        PlainControl control;
        FakeHost host(control, 6, 4);
        control.image()->FillRect({0, 0, 6, 4}, 0x332211);
        EXPECT_FALSE(host.isAllShown());
        control.showChange(row.changed);
        EXPECT_EQ(host.shown, row.shown);
        control.showAll();
        EXPECT_TRUE(host.isAllShown());
    }
}

TEST(ControlTest, HearsOfItsHost) {
    PlainControl control;
    {
        FakeHost host(control, 6, 4);
        EXPECT_EQ(control.host(), &host);
        EXPECT_EQ(control.hostChanges, 1);
        host.requestSize(9, 5);
        EXPECT_EQ(control.width(), 9);
    }
    EXPECT_EQ(control.host(), nullptr);
    EXPECT_EQ(control.hostChanges, 2);
    control.showAll();
}

TEST(ControlTest, ScalesDesignPixelsToWholeOnes) {
    const struct {
        double scale, designPixels;
        int expected;
    } kRows[] = {{1, 1, 1},     {1.25, 1, 1}, {1.5, 1, 2},   {1.25, 16, 20},
                 {1.5, 13, 20}, {2, 20, 40},  {1.25, -2, -2}};
    for (const auto& row : kRows) {
        PlainControl control;
        control.setSize(1, 1, row.scale);
        EXPECT_EQ(control.scaled(row.designPixels), row.expected) << row.designPixels << " at " << row.scale;
    }
}

TEST(SystemColorsTest, ValuesMayNameAColourOfTheSystem) {
    const struct {
        std::uint32_t value;
        Color expected;
    } kRows[] = {
        {0x80000005, 0xFFFFFF}, {0x80000008, 0x000000}, {0x8000000C, 0x808080}, {0x8000000D, 0x6A240A},
        {0x8000000E, 0xFFFFFF}, {0x8000000F, 0xC8D0D4}, {0x80000010, 0x808080}, {0x80000011, 0x808080},
        {0x80000012, 0x000000}, {0x80000014, 0xFFFFFF}, {0x80000015, 0x404040}, {0x80000016, 0xC8D0D4},
        {0x80000017, 0x000000}, {0x80000018, 0xE1FFFF}, {0x80001234, 0x000000}, {0xFFFFFFFF, 0x000000},
        {0x00123456, 0x123456}, {0x02123456, 0x123456}, {0x00000005, 0x000005},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(OleTranslateColor(row.value), row.expected) << std::hex << row.value;
    }
}

TEST(SystemColorsTest, AnInstalledSchemeReplacesTheClassicOne) {
    const struct : SystemColors {
        Color color(SystemColor index) const override { return 0x100 + static_cast<Color>(index); }
    } scheme;
    setSystemColors(&scheme);
    EXPECT_EQ(GetSysColor(SystemColor::ButtonFace), 0x10FU);
    EXPECT_EQ(OleTranslateColor(systemColorValue(SystemColor::InfoText)), 0x117U);
    setSystemColors(nullptr);
    EXPECT_EQ(GetSysColor(SystemColor::ButtonFace), 0xC8D0D4U);
}

TEST(TextServiceTest, WithoutAServiceTextsHaveASizeAndNoLook) {
    const struct {
        std::string_view text;
        double scale;
        int width, height;
    } kRows[] = {{"", 1, 0, 13},
                 {"abc", 1, 18, 13},
                 {"abc", 1.5, 27, 20},
                 {"gr\u00fcn", 1, 24, 13},
                 {"\U0001F600", 2, 12, 26}};
    for (const auto& row : kRows) {
        EXPECT_EQ(textWidth(row.text, {}, row.scale), row.width) << row.text;
        EXPECT_EQ(lineHeight({}, row.scale), row.height) << row.scale;
    }
    PictureGrid grid(20, 13);
    DeviceContext target = grid.context();
    DrawTextA(target, {0, 0, 20, 13}, "abc", {}, 1, 0xFFFFFF, DT_CENTER);
    EXPECT_EQ(grid, PictureGrid(20, 13));
}

}  // namespace
}  // namespace mobrel
