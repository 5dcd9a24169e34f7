// SPDX-License-Identifier: MIT
// The status bar: panes, texts, grip.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "controls/ucInfo.hpp"
#include "support/FakeHost.hpp"
#include "support/LetterColors.hpp"
#include "support/NotedTexts.hpp"
#include "support/PictureGrid.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::LetterColors;
using test::NotedTexts;
using test::PictureGrid;

TEST(UcInfo, LaysItsPanesOutFromTheRight) {
    const struct {
        double scale;
        int line, width;
        bool isMaximized;
        int height;
        Rect file, info, zoom;  // of the texts
    } kRows[] = {
        {1, 13, 400, false, 20, {4, 4, 215, 20}, {220, 4, 315, 20}, {320, 4, 379, 20}},
        {1, 13, 400, true, 20, {4, 4, 235, 20}, {240, 4, 335, 20}, {340, 4, 399, 20}},
        {2, 13, 800, false, 40, {8, 8, 430, 40}, {440, 8, 630, 40}, {640, 8, 758, 40}},
        {1.25, 13, 500, false, 25, {5, 4, 269, 25}, {275, 4, 394, 25}, {400, 4, 474, 25}},
        // A window that is too narrow.
        {1, 13, 100, false, 20, {4, 4, -85, 20}, {-80, 4, 15, 20}, {20, 4, 79, 20}},
        // A font of twice the size.
        {1, 26, 600, false, 31, {4, 4, 317, 31}, {322, 4, 502, 31}, {507, 4, 579, 31}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(::testing::Message() << row.width << " at " << row.scale);
        NotedTexts texts(row.line);
        ucInfo info;
        FakeHost host(info, 0, 0, row.scale);
        host.isMaximized = row.isMaximized;
        host.resize(row.width, 7, row.scale);
        EXPECT_EQ(info.height(), row.height);
        EXPECT_EQ(info.width(), row.width);
        EXPECT_EQ(info.TextFileWidth(), row.file.right - row.file.left);
        texts.lines.clear();
        info.appearanceChanged();
        ASSERT_EQ(texts.lines.size(), 3U);
        EXPECT_EQ(texts.lines[0].rect, row.file);
        EXPECT_EQ(texts.lines[1].rect, row.info);
        EXPECT_EQ(texts.lines[2].rect, row.zoom);
    }
}

TEST(UcInfo, WritesItsTextsAtOnce) {
    const LetterColors colors;
    NotedTexts texts;
    ucInfo info;
    info.setTextFile("a.bmp");  // before there is a window
    FakeHost host(info, 300, 20);
    for (const auto& write :
         {+[](ucInfo& i) { i.setTextInfo("3x4"); }, +[](ucInfo& i) { i.setTextZoom("100%"); },
          +[](ucInfo& i) { i.setTextFile("b.bmp"); }}) {
        host.shown.clear();
        texts.lines.clear();
        write(info);
        EXPECT_EQ(host.shown, (std::vector<Rect>{{0, 0, 300, 20}}));
        EXPECT_EQ(texts.lines.size(), 3U);
    }
    EXPECT_EQ(texts.lines.at(0).text, "b.bmp");
    EXPECT_EQ(texts.lines.at(1).text, "3x4");
    EXPECT_EQ(texts.lines.at(2).text, "100%");
    EXPECT_EQ(texts.lines.at(0).flags, 0U);
    EXPECT_EQ(texts.lines.at(0).color, GetSysColor(SystemColor::WindowText));
    EXPECT_EQ(texts.lines.at(1).color, GetSysColor(SystemColor::ButtonText));
    EXPECT_EQ(texts.lines.at(2).color, GetSysColor(SystemColor::ButtonText));
    EXPECT_EQ(info.accessibleValue(), "b.bmp, 3x4, 100%");
    info.setTextInfo("");
    EXPECT_EQ(info.accessibleValue(), "b.bmp, 100%");
}

TEST(UcInfo, DrawsPanesAndGrip) {
    const LetterColors colors;
    ucInfo info;
    FakeHost host(info, 200, 20);
    const PictureGrid grid = host.copyOfImage();
    const auto is = [&](char letter, int x, int y) {
        return grid.at(x, y) == LetterColors::picture({std::string(1, letter)}).at(0, 0);
    };
    // The first pane is white, the others have the face; above and around them is face.
    for (const auto& [x, letter] : std::vector<std::pair<int, char>>{{0, 's'},
                                                                     {1, 'w'},
                                                                     {14, 'w'},
                                                                     {15, 'h'},
                                                                     {16, 's'},
                                                                     {17, 'f'},
                                                                     {115, 'h'},
                                                                     {116, 's'},
                                                                     {179, 'h'},
                                                                     {180, 'f'}}) {
        EXPECT_TRUE(is(letter, x, 10)) << x;
        EXPECT_TRUE(is('f', x, 1)) << x;
        EXPECT_EQ(is('h', x, 19), x < 180) << x;
    }
    PictureGrid grip(20, 20);
    grip.context().DrawSizeGrip({0, 0, 20, 20});
    PictureGrid corner(20, 20);
    corner.context().BitBlt(0, 0, 20, 20, PictureGrid(grid).context(), 180, 0);
    EXPECT_EQ(corner, grip);
    EXPECT_TRUE(host.isAllShown());
    host.isMaximized = true;
    host.resize(200, 20, 1);
    EXPECT_EQ(host.copyOfImage().at(199, 10), LetterColors::picture({"h"}).at(0, 0));
}

TEST(UcInfo, TheGripSizesTheWindow) {
    const struct {
        bool isMaximized;
        float x;
        bool isGrip;
    } kRows[] = {{false, 280, true}, {false, 299, true}, {false, 279.5F, false}, {true, 299, false}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.x);
        ucInfo info;
        FakeHost host(info, 0, 0);
        host.isMaximized = row.isMaximized;
        host.resize(300, 20, 1);
        info.pointerMoved({0, 0, row.x, 5});
        EXPECT_EQ(host.cursor, row.isGrip ? Cursor::SizeNorthWestSouthEast : Cursor::Default);
        info.pointerPressed({MouseButton::kLeft, 0, row.x, 5});
        EXPECT_EQ(host.sizings, row.isGrip ? 1 : 0);
        info.pointerMoved({0, 0, 10, 5});
        EXPECT_EQ(host.cursor, Cursor::Default);
    }
}

TEST(UcInfo, TellsOfEachLayoutWhenItIsDone) {
    ucInfo info;
    std::vector<int> widths;
    info.Resize.connect([&] {
        widths.push_back(info.TextFileWidth());
        info.setTextFile("shortened to fit");
    });
    info.setTextFile("no window");
    EXPECT_EQ(info.TextFileWidth(), 0);
    FakeHost host(info, 300, 20);
    host.resize(500, 20, 1);
    host.resize(500, 33, 1);  // it goes back to its own height
    EXPECT_EQ(info.height(), 20);
    EXPECT_EQ(widths.back(), 311);
    EXPECT_EQ(std::ranges::count(widths, 311), 2);
    EXPECT_EQ(info.TextFile(), "shortened to fit");
    host.grantsSizes = false;
    host.resize(0, 0, 1);
    host.resize(5, 40, 1);
    EXPECT_EQ(info.height(), 40);
    EXPECT_TRUE(host.isAllShown());
}

}  // namespace
}  // namespace mobrel
