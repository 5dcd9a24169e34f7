// SPDX-License-Identifier: MIT
// Layout, scrolling and paint.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "canvas/canvas_on_host.hpp"

namespace mobrel {
namespace {

using test::CanvasOnHost;
using test::Events;
using test::kMarginPixel;
using test::PictureGrid;
using test::picturePixel;
using ScrollInfo = ucCanvas::ScrollInfo;

/// One direction of a picture that is enlarged in whole steps: the picture's pixel at place `at` of the
/// container, or -1 in the margin.
int shownPixel(int at, int container, int side, std::int64_t zoom, std::int64_t position) {
    const std::int64_t enlarged = side * zoom;
    if (enlarged > container) return static_cast<int>((at + position) / zoom);
    const std::int64_t place = at - (container - enlarged) / 2;
    return place < 0 || place >= enlarged ? -1 : static_cast<int>(place / zoom);
}

PictureGrid expectedScreen(int width, int height, int pictureWidth, int pictureHeight, int zoom,
                           const ScrollInfo& at) {
    PictureGrid grid(width, height);
    grid.fill([&](int x, int y) {
        const int column = shownPixel(x, width, pictureWidth, zoom, at.lHPos);
        const int row = shownPixel(y, height, pictureHeight, zoom, at.lVPos);
        return column < 0 || row < 0 ? kMarginPixel : picturePixel(column, row);
    });
    return grid;
}

TEST(ucCanvas, PaintsThePartInViewAtEveryZoomAndPlace) {
    for (const int zoom : {1, 2, 3, 8, 40, 100, 1 << 30}) {
        for (const auto& [width, height] : {std::pair{50, 40}, {9, 61}, {64, 1}, {31, 24}}) {
            CanvasOnHost on(width, height, 31, 24, zoom);
            const ScrollInfo all = on.canvas.GetScrollInfo();
            for (const auto& [x, y] :
                 {std::pair{0, 0}, {7, 3}, {zoom - 3, zoom - 1}, {all.lHMax, all.lVMax}}) {
                on.canvas.SetScrollInfo(x, y);
                EXPECT_EQ(on.host.screen(),
                          expectedScreen(width, height, 31, 24, zoom, on.canvas.GetScrollInfo()))
                    << zoom << " times in " << width << 'x' << height << " at " << x << ' ' << y;
            }
            EXPECT_EQ(on.events(), Events{});
        }
    }
}

TEST(ucCanvas, FitsThePictureWithTheNearestPixels) {
    const struct {
        int width, height;
        Rect place;
    } cases[] = {{20, 20, {0, 5, 20, 15}},
                 {60, 10, {20, 0, 40, 10}},
                 {90, 21, {25, 0, 65, 20}},
                 {5, 0, {}},
                 {0, 0, {}}};
    for (const auto& [width, height, place] : cases) {
        CanvasOnHost on(width, height, 40, 20, 7);
        on.canvas.setFitMode(true);
        on.canvas.Resize();
        PictureGrid expected(width, height);
        expected.fill([&, at = place](int x, int y) {
            const int w = at.right - at.left;
            const int h = at.bottom - at.top;
            if (x < at.left || x >= at.right || y < at.top || y >= at.bottom) return kMarginPixel;
            return picturePixel(((2 * (x - at.left) + 1) * 40 - 1) / (2 * w),
                                ((2 * (y - at.top) + 1) * 20 - 1) / (2 * h));
        });
        EXPECT_EQ(on.host.screen(), expected) << width << 'x' << height;
    }
}

TEST(ucCanvas, KeepsTheRelativePlace) {
    CanvasOnHost on(40, 33, 100, 40);
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{60, 7, 30, 4}));  // opens at the centre, 3.5 to even
    on.canvas.SetScrollInfo(15, 1000);
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{60, 7, 15, 7}));
    EXPECT_EQ(on.canvas.GetVisibleRect(), (Rect{15, 7, 55, 40}));

    struct Step {
        int zoom, width, height;
        ScrollInfo expected;
    };
    for (const auto& [zoom, width, height, expected] : {Step{2, 40, 33, {160, 47, 40, 47}},
                                                        {2, 120, 90, {80, 0, 20, 0}},
                                                        {1, 120, 90, {0, 0, 0, 0}},
                                                        {3, 120, 90, {180, 30, 90, 15}},
                                                        {3, 120, 91, {180, 29, 90, 14}},
                                                        {3, 0, 0, {300, 120, 150, 58}},
                                                        {3, 120, 91, {180, 29, 90, 14}}}) {
        on.canvas.setZoom(zoom);
        if (on.canvas.width() == width && on.canvas.height() == height) on.canvas.Resize();
        on.host.resize(width, height, 1);
        EXPECT_EQ(on.canvas.GetScrollInfo(), expected) << zoom << " times in " << width << 'x' << height;
    }
    EXPECT_EQ(on.canvas.GetVisibleRect(), (Rect{30, 4, 70, 34}));
    on.canvas.setFitMode(true);
    on.canvas.Resize();
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{180, 29, 90, 14}));
    on.canvas.setZoom(0);
    EXPECT_EQ(on.canvas.Zoom(), 1);
    on.canvas.SetScrollInfo(-1, std::numeric_limits<int>::min());
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{180, 29, 0, 0}));
}

TEST(ucCanvas, ScrollsWithin32BitsHoweverLargeThePictureIs) {
    constexpr int kMost = std::numeric_limits<int>::max();
    CanvasOnHost on(10, 10, 31, 3, kMost);
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{kMost - 10, kMost - 10, 1073741818, 1073741818}));
    on.canvas.SetScrollInfo(kMost, kMost);
    EXPECT_EQ(on.host.screen().at(9, 9), picturePixel(0, 0));
    on.canvas.setWorkMode(ucCanvas::kCropMode);
    on.drag(3, 3, 8, 8);
    on.canvas.setWorkMode(ucCanvas::kScrollMode);
    on.drag(5, 5, -1e30F, 1e30F);
    EXPECT_EQ(on.canvas.GetScrollInfo().lHPos, kMost - 10);
    EXPECT_EQ(on.canvas.GetScrollInfo().lVPos, 0);
    on.canvas.setZoom(1);
    on.canvas.setFitMode(true);
    on.host.resize(20, 20, 1);
    EXPECT_EQ(on.canvas.GetVisibleRect(), (Rect{kMost - 10, 0, kMost, 2}));
}

TEST(ucCanvas, ShowsTheMarginAloneWithoutAPicture) {
    CanvasOnHost on(12, 8, 0, 0);
    PictureGrid margin(12, 8);
    margin.fill([](int, int) { return kMarginPixel; });
    EXPECT_EQ(on.host.screen(), margin);
    on.drag(3, 3, 5, 5);
    EXPECT_EQ(on.events(), (Events{"down 1 0 4 4", "move 1 0 6 6", "up 1 0 6 6"}));

    test::fillPicture(on.canvas.DIB, 40, 40);
    on.canvas.Resize();
    EXPECT_EQ(on.canvas.accessibleValue(), "40 x 40, 100 %");
    on.canvas.DIB.Destroy();
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen().at(0, 0), picturePixel(14, 16));
    on.canvas.Resize();
    EXPECT_EQ(on.host.screen(), margin);
    EXPECT_EQ(on.events(), Events{"resize"});
    EXPECT_EQ(on.canvas.accessibleValue(), "");
}

class OneColor final : public SystemColors {
    Color color(SystemColor) const override { return 0x112233; }
};

TEST(ucCanvas, FillsTheMarginAloneWithItsColours) {
    CanvasOnHost on(12, 8, 4, 4);
    const PictureGrid before = on.host.screen();
    const auto withMargin = [&](std::uint32_t color) {
        PictureGrid grid = before;
        grid.fill([&](int x, int y) { return before.at(x, y) == kMarginPixel ? color : before.at(x, y); });
        return grid;
    };
    on.canvas.setBackColor(0x0000FF);
    EXPECT_EQ(on.host.screen(), withMargin(0xFF0000));
    const OneColor dark;
    setSystemColors(&dark);
    on.canvas.appearanceChanged();
    setSystemColors(nullptr);
    EXPECT_EQ(on.host.screen(), withMargin(0x332211));
    on.canvas.Resize();
    EXPECT_EQ(on.host.screen(), before);
}

}  // namespace
}  // namespace mobrel
