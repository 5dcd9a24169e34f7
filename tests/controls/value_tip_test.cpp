// SPDX-License-Identifier: MIT
// The tip: its size, its frame, its text.
#include "controls/frmValueTip.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SystemColors.hpp"
#include "platform/TextService.hpp"
#include "support/FakeHost.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::PictureGrid;

/// Characters are blocks, 2 wide and 3 high in the middle of their rectangle, and in Tahoma alone.
class BlockText : public TextService {
 public:
    BlockText() { setTextService(this); }
    ~BlockText() override { setTextService(nullptr); }

    int lineHeight(const TextFont& font, double scale) const override {
        return font.family == "Tahoma" ? static_cast<int>(3 * scale) : 0;
    }
    int textWidth(std::string_view text, const TextFont& font, double scale) const override {
        return lineHeight(font, scale) * 2 / 3 * static_cast<int>(text.size());
    }
    void draw(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
              double scale, Color color, unsigned /*flags*/) const override {
        const int width = textWidth(text, font, scale);
        const int height = lineHeight(font, scale);
        const int left = (rect.left + rect.right - width) / 2;
        const int top = (rect.top + rect.bottom - height) / 2;
        target.FillRect({left, top, left + width, top + height}, color);
    }
};

/// l light, d dark shadow, ~ tip background, # tip text.
PictureGrid picture(const std::vector<std::string>& rows) {
    return PictureGrid::fromLetters(rows, RowOrder::TopDown,
                                    {{'l', 0xD4D0C8}, {'d', 0x404040}, {'~', 0xFFFFE1}, {'#', 0x000000}});
}

TEST(ValueTipTest, FramesItsTextInItsOwnSize) {
    const struct {
        std::string_view text;
        double scale;
        std::vector<std::string> expected;
    } kRows[] = {
        {"10",
         1,
         {"llllllllllld", "l~~~~~~~~~~d", "l~~~####~~~d", "l~~~####~~~d", "l~~~####~~~d", "l~~~~~~~~~~d",
          "dddddddddddd"}},
    };
    const BlockText service;
    for (const auto& row : kRows) {
        frmValueTip tip;
        FakeHost host(tip, 1, 1, row.scale);
        tip.setLblTip(std::string(row.text));
        EXPECT_EQ(host.copyOfImage(), picture(row.expected)) << row.text;
        EXPECT_TRUE(host.isAllShown());
    }
}

TEST(ValueTipTest, FollowsTextScaleAndColours) {
    const BlockText service;
    frmValueTip tip;
    tip.setLblTip("123");
    FakeHost host(tip, 40, 40, 1);
    EXPECT_EQ(tip.width(), 14);
    EXPECT_EQ(tip.height(), 7);
    EXPECT_EQ(tip.accessibleValue(), "123");
    tip.setLblTip("");
    EXPECT_EQ(tip.width(), 8);
    host.resize(8, 7, 2);
    EXPECT_EQ(tip.width(), 16);
    EXPECT_EQ(tip.height(), 14);
    const struct : SystemColors {
        Color color(SystemColor index) const override { return static_cast<Color>(index); }
    } scheme;
    setSystemColors(&scheme);
    tip.appearanceChanged();
    setSystemColors(nullptr);
    EXPECT_EQ(host.screen().at(1, 1), static_cast<std::uint32_t>(SystemColor::Light3D) << 16);
    EXPECT_EQ(host.screen().at(14, 13), static_cast<std::uint32_t>(SystemColor::DarkShadow3D) << 16);
    EXPECT_EQ(host.screen().at(7, 7), static_cast<std::uint32_t>(SystemColor::InfoBackground) << 16);
}

// A window that gives no size, none at all, or no window.
TEST(ValueTipTest, LivesInAnyWindow) {
    frmValueTip tip;
    tip.setLblTip("12");
    tip.appearanceChanged();
    EXPECT_EQ(tip.lblTip(), "12");
    FakeHost host(tip, 0, 0);
    EXPECT_EQ(tip.width(), 20);
    host.grantsSizes = false;
    host.resize(3, 2, 1);
    tip.setLblTip("4");
    EXPECT_EQ(host.copyOfImage(), picture({"lld", "ddd"}));
    EXPECT_EQ(host.requestedWidth, 14);
    host.resize(0, 0, 1);
    tip.setLblTip("5");
    EXPECT_TRUE(host.shown.empty());
}

}  // namespace
}  // namespace mobrel
