// SPDX-License-Identifier: MIT
// The crop frame on the canvas.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

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
        : CanvasOnHost(width, height, pictureWidth, pictureHeight, zoom) {
        canvas.setWorkMode(ucCanvas::kCropMode);
        clean = host.screen();
    }

    /// The screen before, with a dotted rectangle, or with a frame, of a picture that stands at (left, top).
    PictureGrid withDots(const Rect& rect, int left = 0, int top = 0) const {
        PictureGrid grid = clean;
        DeviceContext whole = grid.context();
        whole.part({left, top, grid.width() - left, grid.height() - top}).DrawFocusRect(rect);
        return grid;
    }
    PictureGrid withFrame(const Rect& rect, int left = 0, int top = 0) const {
        cFrame frame;
        frame.SetFrameRect(rect.left, rect.top, rect.right, rect.bottom, false);
        PictureGrid grid = clean;
        DeviceContext whole = grid.context();
        DeviceContext view = whole.part({left, top, grid.width() - left, grid.height() - top});
        frame.PaintToDC(view, 0, 0);
        return grid;
    }

    PictureGrid clean{0, 0};
};

TEST(ucCanvas, DragsADottedRectangleAndLeavesAFrame) {
    CroppingCanvas on(40, 30, 34, 26);  // from (3, 2)
    on.press(8, 7);
    EXPECT_EQ(on.host.screen(), on.clean);
    on.move(20, 12);
    EXPECT_EQ(on.host.screen(), on.withDots({5, 5, 17, 10}, 3, 2));
    on.move(6, 4);
    EXPECT_EQ(on.host.screen(), on.withDots({3, 2, 5, 5}, 3, 2)) << "to the left and up";
    on.move(6, 7);
    EXPECT_EQ(on.host.screen(), on.withDots({3, 2, 5, 5}, 3, 2)) << "no height: the last one stays";
    on.move(2, -5);
    EXPECT_EQ(on.host.screen(), on.withDots({-1, -7, 5, 5}, 3, 2)) << "past the edges";
    EXPECT_TRUE(on.host.isAllShown());
    on.release(2, -5);
    EXPECT_EQ(on.host.screen(), on.withFrame({0, 0, 5, 5}, 3, 2));
    EXPECT_TRUE(on.host.isAllShown());
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.withFrame({0, 0, 5, 5}, 3, 2));
    EXPECT_EQ(on.events().back(), "up 1 0: -1 -7");

    on.drag(5, 5, 5, 5);
    EXPECT_EQ(on.host.screen(), on.clean) << "a click removes it";
    on.drag(8, 7, 20, 12);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.withFrame({5, 5, 17, 10}, 3, 2)) << "it stays in mode 2";
    on.canvas.setWorkMode(ucCanvas::kScrollMode);
    on.canvas.Repaint();
    EXPECT_EQ(on.host.screen(), on.clean);
}

TEST(ucCanvas, KeepsTheFrameOnThePictureWhenItScrollsAndZooms) {
    CroppingCanvas on(40, 30, 60, 50, 2);  // scrolls by 80 and 70, from 40 and 35
    on.press(4, 3);
    on.move(13, 14);
    EXPECT_EQ(on.host.screen(), on.withDots({4, 3, 12, 13}));
    on.release(13, 14);
    EXPECT_EQ(on.host.screen(), on.withFrame({4, 3, 12, 13}));  // picture pixels (22, 19) to (26, 24)
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    on.canvas.SetScrollInfo(43, 30);
    const PictureGrid scrolled = on.host.screen();
    on.canvas.RemoveCropRectangle();
    on.canvas.Repaint();
    on.clean = on.host.screen();
    EXPECT_EQ(scrolled, on.withFrame({1, 8, 9, 18}));
}

TEST(ucCanvas, LeavesNoTraceOfADragThatIsPaintedOver) {
    const std::function<void(ucCanvas&)> disturbances[] = {
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
        const PictureGrid paintedAnew = on.host.screen();
        EXPECT_EQ(left, paintedAnew) << &disturb - disturbances;
    }
}

TEST(ucCanvas, ErasesTheDotsOnReleaseWhateverTheMode) {
    for (const int mode : {ucCanvas::kScrollMode, ucCanvas::kPickColorMode}) {
        CroppingCanvas on(40, 30, 34, 26);
        on.press(8, 7);
        on.move(20, 12);
        on.canvas.setWorkMode(mode);
        on.release(20, 12);
        EXPECT_EQ(on.host.screen(), on.clean) << mode;
    }
}

TEST(ucCanvas, OffersTheMenuOnTheFrameAlone) {
    CroppingCanvas on(40, 30, 34, 26);  // from (3, 2)
    on.drag(8, 7, 20, 12);              // frame (5, 5) to (17, 10)
    for (const auto& [x, y] : {std::pair{7.F, 7.F}, {20.F, 8.F}, {9.F, 12.F}, {1.F, 1.F}}) {
        on.press(x, y, MouseButton::kRight);
        on.release(x, y, MouseButton::kRight);
    }
    on.press(9, 9);
    on.release(9, 9);
    EXPECT_TRUE(on.host.menus.empty());

    on.drag(8, 7, 20, 12);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    on.press(19, 11, MouseButton::kRight);
    ASSERT_EQ(on.host.menus.size(), 1U);
    EXPECT_EQ(on.host.menus[0].captions,
              (std::vector<std::string>{"Crop", "Copy", "-", "Remove frame", "Cancel"}));
    EXPECT_EQ(std::pair(on.host.menus[0].x, on.host.menus[0].y), std::pair(19, 11));
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
        on.events();
        on.press(9, 9, MouseButton::kRight);
        on.release(9, 9, MouseButton::kRight);
    };
    for (const int line : {-1, 4, 2, 1}) choose(line);
    EXPECT_EQ(clipboard.size, std::pair(12, 5));
    EXPECT_EQ(clipboard.firstPixel, picturePixel(5, 5));
    EXPECT_EQ(on.host.screen(), on.withFrame({5, 5, 17, 10}, 3, 2));
    choose(3);
    EXPECT_EQ(on.host.screen(), on.clean);
    EXPECT_EQ(on.canvas.DIB.Width(), 34);

    on.drag(20, 12, 8, 7);
    choose(0);
    EXPECT_EQ(on.events(), (Events{"resize", "cropped", "down 2 0: 6 7", "up 2 0: -5 -3"}));
    EXPECT_EQ(std::pair(on.canvas.DIB.Width(), on.canvas.DIB.Height()), std::pair(12, 5));
    PictureGrid expected(40, 30);
    expected.fill([](int x, int y) {
        const bool isPicture = x >= 14 && x < 26 && y >= 12 && y < 17;
        return isPicture ? picturePixel(x - 14 + 5, y - 12 + 5) : test::kMarginPixel;
    });
    EXPECT_EQ(on.host.screen(), expected);
    on.canvas.mnuCrop(0);
    EXPECT_EQ(on.canvas.DIB.Width(), 12) << "without a frame nothing is cut";
}

TEST(ucCanvas, CropsTheWholePictureToItself) {
    CroppingCanvas on(40, 30, 34, 26);
    on.drag(0, 0, 39, 29);
    on.canvas.mnuCrop(0);
    EXPECT_EQ(on.host.screen(), on.clean);
}

}  // namespace
}  // namespace mobrel
