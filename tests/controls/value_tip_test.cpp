// SPDX-License-Identifier: MIT
// The tip: its size, its frame, its text.
#include "controls/frmValueTip.hpp"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "platform/drawing/SystemColors.hpp"
#include "support/FakeHost.hpp"
#include "support/NotedTexts.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::PictureGrid;

/// l light, d dark shadow, ~ tip background.
PictureGrid picture(const std::vector<std::string>& rows) {
    return PictureGrid::fromLetters(rows, RowOrder::TopDown,
                                    {{'l', 0xD4D0C8}, {'d', 0x404040}, {'~', 0xFFFFE1}});
}

TEST(ValueTipTest, FramesItsTextInItsOwnSize) {
    const test::NotedTexts texts(3);
    frmValueTip tip;
    tip.setLblTip("123");  // before there is a window
    FakeHost host(tip, 0, 0);
    EXPECT_EQ(std::tuple(tip.width(), tip.height(), tip.accessibleValue()), std::tuple(11, 7, "123"));
    tip.setLblTip("");
    const std::string line = "l~~~~~~d";
    EXPECT_EQ(host.screen(), picture({"llllllld", line, line, line, line, line, "dddddddd"}));
    tip.setLblTip("10");
    EXPECT_EQ(texts.lines.back(),
              (test::NotedTexts::Line{{0, 0, 10, 7}, "10", {.family = "Tahoma"}, 0x000000, 37}));
    host.resize(8, 7, 2);
    EXPECT_EQ(std::tuple(tip.width(), tip.height()), std::tuple(20, 14));
    EXPECT_TRUE(host.isAllShown());

    const struct : SystemColors {
        Color color(SystemColor index) const override { return static_cast<Color>(index) * 0x10101; }
    } scheme;
    setSystemColors(&scheme);
    tip.appearanceChanged();
    setSystemColors(nullptr);
    EXPECT_EQ(std::tuple(host.screen().at(1, 1), host.screen().at(18, 13), host.screen().at(7, 7)),
              std::tuple(0x161616U, 0x151515U, 0x181818U));
}

TEST(ValueTipTest, StandsAWindowThatGivesItNoSize) {
    frmValueTip tip;
    FakeHost host(tip, 0, 0);
    host.grantsSizes = false;
    host.resize(3, 2, 1);
    tip.setLblTip("4");
    EXPECT_EQ(std::tuple(host.copyOfImage() == picture({"lld", "ddd"}), host.requestedWidth),
              std::tuple(true, 14));
    host.resize(0, 0, 1);
    tip.setLblTip("5");
    EXPECT_TRUE(host.shown.empty());
}

}  // namespace
}  // namespace mobrel
