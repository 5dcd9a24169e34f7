// SPDX-License-Identifier: MIT
// The crop frame on the canvas.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "canvas/canvas_on_host.hpp"

namespace mobrel {
namespace {

using test::CanvasOnHost;
using test::Events;
using test::PictureGrid;
using test::picturePixel;

class CroppingCanvas : public CanvasOnHost {
 public:
    CroppingCanvas(int width, int height, int pictureWidth, int pictureHeight, int zoom = 1)
        : CanvasOnHost(width, height, pictureWidth, pictureHeight, zoom),
          m_left(std::max(0, width - pictureWidth * zoom) / 2),
          m_top(std::max(0, height - pictureHeight * zoom) / 2) {
        canvas.setWorkMode(ucCanvas::kCropMode);
        clean = host.screen();
    }

    /// The screen before, with a dotted rectangle, or with a frame, in view pixels.
    PictureGrid withDots(const Rect& rect, int thickness = 1) const {
        PictureGrid grid = clean;
        viewOf(grid).DrawFocusRect(rect, thickness);
        return grid;
    }
    PictureGrid withFrame(const Rect& rect) const {
        cFrame frame;
        frame.SetFrameRect(rect.left, rect.top, rect.right, rect.bottom, false);
        PictureGrid grid = clean;
        DeviceContext view = viewOf(grid);
        frame.PaintToDC(view, 0, 0);
        return grid;
    }
    void click(float x, float y, std::int16_t button) {
        press(x, y, button);
        release(x, y, button);
    }

    PictureGrid clean{0, 0};

 private:
    DeviceContext viewOf(PictureGrid& grid) const {
        return grid.context().part({m_left, m_top, grid.width() - m_left, grid.height() - m_top});
    }

    int m_left;
    int m_top;
};

TEST(ucCanvas, DragsADottedRectangleAndLeavesAFrame) {
    CroppingCanvas on(40, 30, 34, 26);  // from (3, 2)
    on.press(8, 7);
    EXPECT_EQ(on.host.screen(), on.clean);
    const struct {
        float x, y;
        Rect dots;
    } moves[] = {
        {20, 12, {5, 5, 17, 10}},
        {6, 4, {3, 2, 5, 5}},     // to the left and up
        {6, 7, {3, 2, 5, 5}},     // no height: the last one stays
        {2, -5, {-1, -7, 5, 5}},  // past the edges
    };
    for (const auto& [x, y, dots] : moves) {
        on.move(x, y);
        EXPECT_EQ(on.host.screen(), on.withDots(dots)) << x << ' ' << y;
    }
    EXPECT_TRUE(on.host.isAllShown());
    on.release(2, -5);
    EXPECT_EQ(on.host.screen(), on.withFrame({0, 0, 5, 5}));
    EXPECT_TRUE(on.host.isAllShown());
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.withFrame({0, 0, 5, 5}));
    EXPECT_EQ(on.events().back(), "up 1 0 -1 -7");

    on.drag(5, 5, 5, 5);
    EXPECT_EQ(on.host.screen(), on.clean) << "a click removes it";
    on.drag(8, 7, 20, 12);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.withFrame({5, 5, 17, 10})) << "it stays in mode 2";
    on.canvas.setWorkMode(ucCanvas::kScrollMode);
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.clean);
}

TEST(ucCanvas, KeepsTheFrameOnThePictureWhenItScrollsAndZooms) {
    CroppingCanvas on(40, 30, 60, 50, 2);  // scrolls by 80 and 70, from 40 and 35
    on.host.resize(40, 30, 3.5);
    on.press(4, 3);
    on.move(13, 14);
    EXPECT_EQ(on.host.screen(), on.withDots({4, 3, 12, 13}, 3));
    on.release(13, 14);
    EXPECT_EQ(on.host.screen(), on.withFrame({4, 3, 12, 13}));  // picture pixels (22, 19) to (26, 24)
    on.canvas.SetScrollInfo(43, 30);
    on.canvas.setZoom(3);
    on.canvas.Resize();  // to 75 and 51
    const PictureGrid zoomed = on.host.screen();
    on.canvas.RemoveCropRectangle();
    on.canvas.Repaint();
    on.clean = on.host.screen();
    EXPECT_EQ(zoomed, on.withFrame({-9, 6, 3, 21}));
}

TEST(ucCanvas, LeavesNoTraceOfADragThatIsPaintedOver) {
    void (*const disturbances[])(ucCanvas&) = {
        [](ucCanvas& canvas) { canvas.Repaint(); },
        [](ucCanvas& canvas) { canvas.Resize(); },
        [](ucCanvas& canvas) { canvas.setSize(canvas.width(), canvas.height(), 2); },
        [](ucCanvas& canvas) { canvas.setWorkMode(ucCanvas::kScrollMode); },
        [](ucCanvas& canvas) { canvas.appearanceChanged(); },
        [](ucCanvas& canvas) {
            canvas.DIB.Destroy();
            canvas.Resize();
            test::fillPicture(canvas.DIB, 34, 26);
            canvas.Resize();
        },
    };
    for (const auto& disturb : disturbances) {
        CroppingCanvas on(40, 30, 34, 26);
        on.press(8, 7);
        on.move(20, 12);
        disturb(on.canvas);
        on.move(30, 20);
        on.release(30, 20);
        const PictureGrid left = on.host.copyOfImage();
        EXPECT_TRUE(on.host.isAllShown());
        on.canvas.Repaint();
        EXPECT_EQ(left, on.host.screen()) << &disturb - disturbances;
    }
    CroppingCanvas on(40, 30, 34, 26);
    on.press(8, 7);
    on.move(20, 12);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    on.release(20, 12);
    EXPECT_EQ(on.host.screen(), on.clean) << "erased in any mode, and no frame is drawn";
}

TEST(ucCanvas, OffersTheMenuOnTheFrameAlone) {
    CroppingCanvas on(40, 30, 34, 26);  // from (3, 2)
    on.drag(8, 7, 20, 12);              // frame (5, 5) to (17, 10)
    for (const auto& [x, y] : {std::pair{7.F, 7.F}, {20.F, 8.F}, {9.F, 12.F}, {1.F, 1.F}}) {
        on.click(x, y, MouseButton::kRight);
    }
    on.click(9, 9, MouseButton::kLeft);  // removes it
    on.click(9, 9, MouseButton::kRight);
    EXPECT_TRUE(on.host.menus.empty());

    on.drag(8, 7, 20, 12);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    for (const auto& [x, y] : {std::pair{8.F, 7.F}, {19.F, 11.F}}) {
        on.click(x, y, MouseButton::kRight);
        ASSERT_FALSE(on.host.menus.empty());
        EXPECT_EQ(std::pair(on.host.menus.back().x, on.host.menus.back().y), (std::pair<int, int>(x, y)));
    }
    EXPECT_EQ(on.host.menus[0].captions,
              (std::vector<std::string>{"Crop", "Copy", "-", "Remove frame", "Cancel"}));
}

/// Keeps size and first pixel of what is copied.
class NotedClipboard final : public Clipboard {
 public:
    void copyPicture(const PictureView& picture) override {
        size = {picture.width, picture.height};
        std::memcpy(&firstPixel, picture.line(0), 4);
    }
    std::pair<int, int> size;
    std::uint32_t firstPixel = 0;
};

TEST(ucCanvas, CutsCopiesAndRemovesByTheMenu) {
    CroppingCanvas on(40, 30, 34, 26);
    NotedClipboard clipboard;
    on.canvas.setClipboard(&clipboard);
    on.drag(8, 7, 20, 12);
    const auto choose = [&](int line) {
        on.host.chosenLine = line;
        on.click(9, 9, MouseButton::kRight);
    };
    for (const int line : {-1, 4, 2, 1}) choose(line);
    EXPECT_EQ(clipboard.size, std::pair(12, 5));
    EXPECT_EQ(clipboard.firstPixel, picturePixel(5, 5));
    EXPECT_EQ(on.host.screen(), on.withFrame({5, 5, 17, 10}));
    choose(3);
    EXPECT_EQ(on.host.screen(), on.clean);

    on.drag(0, 0, 39, 29);
    choose(0);
    EXPECT_EQ(on.host.screen(), on.clean) << "all of it";

    on.drag(20, 12, 8, 7);
    choose(0);
    PictureGrid expected(40, 30);
    expected.fill([](int x, int y) {
        const bool isPicture = x >= 14 && x < 26 && y >= 12 && y < 17;
        return isPicture ? picturePixel(x - 14 + 5, y - 12 + 5) : test::kMarginPixel;
    });
    EXPECT_EQ(on.host.screen(), expected);
    on.canvas.mnuCrop(0);
    EXPECT_EQ(on.canvas.DIB.Width(), 12) << "without a frame nothing is cut";
}

TEST(ucCanvas, TellsOfAPressBeforeTheCutThatItsMenuMakes) {
    CroppingCanvas on(40, 30, 60, 50, 2);  // scrolled by 40 and 35
    on.drag(4, 3, 13, 14);
    on.events();
    on.host.chosenLine = 0;
    on.press(6, 6, MouseButton::kRight);
    EXPECT_EQ(on.events(), (Events{"resize", "cropped", "down 2 0 23 20"}));
}

}  // namespace
}  // namespace mobrel
