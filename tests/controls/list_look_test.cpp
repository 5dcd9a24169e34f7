// SPDX-License-Identifier: MIT
// Where the rows of the list control stand and what they look like.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "controls/list_window.hpp"
#include "support/NotedTexts.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::ListWindow;
using test::NotedTexts;
using test::PictureGrid;
using test::rowInImage;

// Blue, green, red from high to low.
constexpr Color kNormal = 0xC0F0FF;
constexpr Color kSelected = 0x30A050;
constexpr Color kFrom = 0x000082;
constexpr Color kTo = 0x82FF00;
constexpr Color kBox = 0x0000FF;
constexpr Color kIcon = 0xFFFF0F;

/// A pixel of the grid as a platform colour.
Color colorAt(const PictureGrid& grid, int x, int y) {
    const std::uint32_t pixel = grid.at(x, y);
    return (pixel >> 16 & 0xFF) | (pixel & 0xFF00) | (pixel & 0xFF) << 16;
}

/// Icon 1 is a square of 4 by 4 pixels; there is no other.
class OneIcon : public ImageList {
 public:
    void draw(DeviceContext& target, int x, int y, int index, ImageStyle style) const override {
        if (index != 1) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(style, ImageStyle::Transparent);
        target.FillRect({x, y, x + 4, y + 4}, kIcon);
    }
    int imageHeight() const override { return 4; }
};

TEST(ListLayout, ShowsWholeRowsOnly) {
    const struct {
        const char* name;
        int height;
        double scale;
        std::int16_t itemHeight;  // 0 is automatic
        ListBorder border;
        ListAppearance appearance;
        int snapped, rows;
    } cases[] = {
        {"exact", 69, 1, 0, ListBorder::Single, ListAppearance::ThreeD, 69, 5},
        {"a pixel less", 68, 1, 0, ListBorder::Single, ListAppearance::ThreeD, 56, 4},
        {"no border", 64, 1, 0, ListBorder::None, ListAppearance::ThreeD, 52, 4},
        {"thin border", 68, 1, 0, ListBorder::Single, ListAppearance::Flat, 67, 5},
        {"higher rows", 69, 1, 20, ListBorder::Single, ListAppearance::ThreeD, 64, 3},
        {"rows lower than a line", 69, 1, 5, ListBorder::Single, ListAppearance::ThreeD, 69, 5},
        {"1.25", 99, 1.25, 0, ListBorder::Single, ListAppearance::ThreeD, 84, 5},  // 16.25
        {"1.5", 100, 1.5, 20, ListBorder::Single, ListAppearance::ThreeD, 94, 3},
        {"2", 100, 2, 0, ListBorder::Single, ListAppearance::ThreeD, 86, 3},
        {"too low for a row", 10, 1, 0, ListBorder::Single, ListAppearance::ThreeD, 10, 0},
        {"nothing", 0, 1, 0, ListBorder::Single, ListAppearance::ThreeD, 0, 0},
    };
    for (const auto& c : cases) {
        for (const bool hasHost : {true, false}) {
            ucCoolList list;
            test::addItems(list, 9);
            list.setBorderStyle(c.border);
            list.setAppearance(c.appearance);
            list.setItemHeightAuto(c.itemHeight == 0);
            list.setItemHeight(c.itemHeight);
            std::optional<test::FakeHost> host;
            if (hasHost) {
                host.emplace(list, 80, c.height, c.scale);
            } else {
                list.setSize(80, c.height, c.scale);
            }
            EXPECT_EQ(list.height(), c.snapped) << c.name;
            list.setListIndex(8);
            EXPECT_EQ(list.TopIndex(), c.rows > 0 ? 9 - c.rows : 0) << c.name;
        }
    }
}

TEST(ListLayout, AWindowThatKeepsItsHeightIsAskedOnce) {
    ucCoolList list;
    test::FakeHost host;
    host.grantsSizes = false;
    list.setHost(&host);
    list.setSize(50, 60, 1);
    EXPECT_EQ(std::tuple(host.requestedWidth, host.requestedHeight, list.height()), std::tuple(50, 56, 60));
    list.setHost(nullptr);
}

TEST(ListLayout, FollowsTheFont) {
    const NotedTexts text;
    ListWindow window(9);
    window.list.setFont({"", 10, false});
    EXPECT_EQ(std::tuple(window.list.height(), window.list.ItemHeight()), std::tuple(64, 20));
    window.list.setFont({"", 0.1, false});  // no line at all
    EXPECT_EQ(window.list.height(), 64);
}

TEST(ListDrawing, LooksOfASelectedRow) {
    struct Pixel {
        int x, y;
        Color color;
    };
    const auto picture = [] {
        PictureGrid grid = PictureGrid::fromNumbers({{0x112233, 0x445566}});
        const PictureView view{grid.bits(), 8, 2, 1};
        return copyAsControlPicture(view);
    }();
    const struct {
        ListLook look;
        std::shared_ptr<const ControlPicture> picture;
        std::vector<Pixel> pixels;
    } cases[] = {
        {ListLook::Solid, nullptr, {{0, 0, kIcon}, {4, 0, kSelected}, {95, 12, kSelected}}},
        {ListLook::Tinted,
         nullptr,
         {{0, 0, kIcon & kSelected}, {4, 0, kNormal & kSelected}, {95, 12, kNormal & kSelected}}},
        // over 13 lines
        {ListLook::VerticalGradient, nullptr, {{4, 0, 0x000082}, {95, 0, 0x000082}, {95, 1, 0x0A1378}}},
        {ListLook::VerticalGradient, nullptr, {{0, 12, 0x78EB0A}, {95, 12, 0x78EB0A}}},
        // over 96 columns
        {ListLook::HorizontalGradient, nullptr, {{0, 12, 0x000082}, {48, 0, 0x417F41}, {48, 12, 0x417F41}}},
        {ListLook::Box, nullptr, {{4, 0, kNormal}, {50, 1, kBox}, {50, 2, kSelected}, {94, 11, kBox}}},
        {ListLook::Box, nullptr, {{95, 6, kNormal}, {50, 12, kNormal}}},
        {ListLook::Bold, nullptr, {{0, 0, kIcon}, {4, 0, kNormal}, {95, 12, kNormal}}},
        {ListLook::Picture, picture, {{47, 12, 0x332211}, {48, 0, 0x665544}}},
        {ListLook::Picture, nullptr, {{4, 0, kSelected}, {95, 12, kSelected}}},
    };
    for (const auto& c : cases) {
        const NotedTexts text;
        ListWindow window;
        ucCoolListProperties properties;
        properties.BackNormal = kNormal;
        properties.BackSelected = kSelected;
        properties.BackSelectedG1 = kFrom;
        properties.BackSelectedG2 = kTo;
        properties.BoxBorder = kBox;
        properties.SelectModeStyle = c.look;
        properties.SelectionPicture = c.picture;
        window.list.setProperties(properties);
        window.list.SetImageList(std::make_shared<OneIcon>());
        window.list.AddItem("a", 2, 1);
        window.list.setListIndex(0);
        const PictureGrid shown = window.host.copyOfImage();
        for (const Pixel& pixel : c.pixels) {
            EXPECT_EQ(colorAt(shown, 2 + pixel.x, 2 + pixel.y), pixel.color)
                << "look " << static_cast<int>(c.look) << " at " << pixel.x << ", " << pixel.y;
        }
        EXPECT_EQ(colorAt(shown, 50, 2 + 13), kNormal) << "below the last row";
        EXPECT_EQ(text.lines.back().font.bold, c.look == ListLook::Bold);
        EXPECT_EQ(text.lines.back().color, GetSysColor(SystemColor::HighlightText));
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListDrawing, TextAndIconFollowWordWrap) {
    const struct {
        double scale;
        bool wraps;
        ListAlignment alignment;
        Rect text;
        unsigned flags;
        int iconX, iconY;
    } cases[] = {
        {1, true, ListAlignment::Left, {8, 3, 93, 17}, 16, 3, 3},
        {1, true, ListAlignment::Right, {8, 3, 93, 17}, 18, 3, 3},
        {1, false, ListAlignment::Right, {8, 3, 93, 17}, 36, 3, 8},
        {2, true, ListAlignment::Center, {16, 6, 86, 34}, 17, 6, 6},
        {2, false, ListAlignment::Center, {16, 6, 86, 34}, 36, 6, 18},
        {1.5, true, ListAlignment::Left, {12, 4, 92, 26}, 16, 4, 4},
    };
    for (const auto& c : cases) {
        const NotedTexts text;
        ListWindow window;
        ucCoolList& list = window.list;
        list.setItemHeightAuto(false);
        list.setItemHeight(20);
        list.setItemOffset(3);
        list.setItemTextLeft(5);
        list.setWordWrap(c.wraps);
        list.setAlignment(c.alignment);
        list.setBackNormal(kNormal);
        list.SetImageList(std::make_shared<OneIcon>());
        window.host.resize(100, 100, c.scale);
        list.AddItem("a", 1, 2);
        EXPECT_EQ(text.lines.back(),
                  (NotedTexts::Line{c.text, "a", TextFont(), GetSysColor(SystemColor::WindowText), c.flags}))
            << "scale " << c.scale;
        const int edge = c.scale < 2 ? 2 : 4;
        const PictureGrid shown = window.host.copyOfImage();
        EXPECT_EQ(colorAt(shown, edge + c.iconX, edge + c.iconY), kIcon);
        EXPECT_EQ(colorAt(shown, edge + c.iconX - 1, edge + c.iconY), kNormal);
        EXPECT_EQ(colorAt(shown, edge + c.iconX, edge + c.iconY - 1), kNormal);
    }
}

TEST(ListDrawing, DrawsNoOtherRowThanItMust) {
    ListWindow window(4);
    std::vector<Rect>& shown = window.host.shown;
    window.list.AddItem("4");
    EXPECT_EQ(shown, (std::vector<Rect>{rowInImage(4)}));
    shown.clear();
    window.list.setItemText(2, "x");
    window.list.setItemSelected(1, true);
    window.list.ModifyItem(0, "y");
    EXPECT_EQ(shown, (std::vector<Rect>{rowInImage(2), rowInImage(1), rowInImage(0)}));
    shown.clear();
    window.list.setListIndex(1);
    window.list.setListIndex(3);
    EXPECT_EQ(shown, (std::vector<Rect>{rowInImage(1), rowInImage(1), rowInImage(3)}));
    window.list.AddItem("5");  // all rows are narrower now
    shown.clear();
    window.list.AddItem("6");
    EXPECT_TRUE(shown.empty());
}

TEST(ListDrawing, TheFocusRectangleMarksTheCurrentRowAlone) {
    for (const bool isWanted : {true, false}) {
        ListWindow window(4);
        ucCoolList& list = window.list;
        list.setFocus(isWanted);
        list.setSelectMode(ListSelectMode::Multiple);
        const PictureGrid plain = window.host.copyOfImage();
        const auto isMarked = [&](int row) {
            const PictureGrid now = window.host.copyOfImage();
            const Rect rect = rowInImage(row);
            // the corner where the outline begins
            return now.at(rect.right - 1, rect.top) != plain.at(rect.right - 1, rect.top);
        };
        list.setListIndex(1);
        EXPECT_FALSE(isMarked(1));
        list.focusChanged(true);
        EXPECT_EQ(isMarked(1), isWanted);
        list.setItemText(3, "3");
        list.ModifyItem(1, "1");
        list.appearanceChanged();
        EXPECT_EQ(isMarked(1), isWanted);
        window.key(KeyCode::kDown);
        EXPECT_EQ(std::tuple(isMarked(1), isMarked(2)), std::tuple(false, isWanted));
        list.focusChanged(false);
        EXPECT_EQ(window.host.copyOfImage(), plain);
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListDrawing, Borders) {
    const struct {
        ListBorder border;
        ListAppearance appearance;
        SystemColor outer, second;
    } cases[] = {
        {ListBorder::Single, ListAppearance::ThreeD, SystemColor::ButtonShadow, SystemColor::DarkShadow3D},
        {ListBorder::Single, ListAppearance::Flat, SystemColor::WindowText, SystemColor::Window},
        {ListBorder::None, ListAppearance::ThreeD, SystemColor::Window, SystemColor::Window},
    };
    for (const auto& c : cases) {
        ListWindow window;
        window.list.setBorderStyle(c.border);
        window.list.setAppearance(c.appearance);
        const PictureGrid shown = window.host.copyOfImage();
        EXPECT_EQ(colorAt(shown, 0, 0), GetSysColor(c.outer));
        EXPECT_EQ(colorAt(shown, 1, 1), GetSysColor(c.second));
    }
}

TEST(ListDrawing, ADesignNameStandsInPlaceOfTheRows) {
    const NotedTexts text;
    ListWindow window(3);
    window.list.setAlignment(ListAlignment::Center);
    window.list.setDesignName("lstFiles");
    const std::size_t count = text.lines.size();
    EXPECT_EQ(text.lines.back(), (NotedTexts::Line{{0, 0, 96, 65}, "lstFiles", TextFont(), 0, DT_CENTER}));
    window.list.setItemText(0, "x");
    EXPECT_EQ(text.lines.size(), count);
}

}  // namespace
}  // namespace mobrel
