// SPDX-License-Identifier: MIT
// The pointer, the hand, wheel and keys.
#include <gtest/gtest.h>

#include "canvas/canvas_on_host.hpp"

namespace mobrel {
namespace {

using test::CanvasOnHost;
using test::Events;
using test::picturePixel;
using ScrollInfo = ucCanvas::ScrollInfo;

constexpr std::int16_t kNoButton = MouseButton::kNone;
constexpr std::int16_t kRight = MouseButton::kRight;

TEST(ucCanvas, TellsThePlaceInThePicture) {
    const struct {
        int width, height, pictureWidth, pictureHeight, zoom;
        bool fit;
        float x, y;
        const char* event;
    } cases[] = {
        {48, 50, 20, 10, 1, false, 14, 20, "down 2 0 0 0"},
        {48, 50, 20, 10, 1, false, 33, 29, "down 2 0 19 9"},
        {48, 50, 20, 10, 3, false, 0, 10, "down 2 0 2 0"},  // stands at (0, 10), scrolled by 6
        {48, 50, 20, 10, 3, false, 2.5F, 12.5F, "down 2 0 2 0"},
        {48, 50, 20, 10, 3, false, 3.5F, 13.5F, "down 2 0 3 1"},
        {48, 50, 20, 10, 3, true, 14, 20, "down 2 0 0 0"},
        {30, 30, 90, 45, 1, true, 29, 7, "down 2 0 86 0"},  // fitted to 30 x 15; as a float, a third is more
        {30, 30, 90, 45, 1, true, -1, 6, "down 2 0 -3 -3"},
        {30, 30, 90, 45, 1, true, 12, 30, "down 2 0 35 68"},
        {5, 5, 5, 10, 1, true, 2, 3, "down 2 0 2 6"},  // fitted to 2 x 5, of which the height tells the ratio
    };
    for (const auto& c : cases) {
        CanvasOnHost on(c.width, c.height, c.pictureWidth, c.pictureHeight, c.zoom);
        on.canvas.setFitMode(c.fit);
        on.canvas.Resize();
        on.press(c.x, c.y, kRight);
        EXPECT_EQ(on.events().back(), c.event) << c.x << ' ' << c.y << " of " << c.pictureWidth;
    }
}

TEST(ucCanvas, TakesAPressInTheMarginAsOneOnThePicture) {
    CanvasOnHost on(40, 40, 20, 20, 1);
    on.move(3, 3, kNoButton);
    on.release(3, 3);
    EXPECT_EQ(on.events(), Events{});
    EXPECT_EQ(on.host.captures, 0);
    on.canvas.pointerPressed({MouseButton::kLeft, ShiftState::kShift, 3, 4});
    on.move(5, 39);
    on.release(0, 0);
    EXPECT_EQ(on.events(), (Events{"down 1 1 -7 -6", "move 1 0 -5 29", "up 1 0 -10 -10"}));
    EXPECT_EQ(on.host.captures, 1);
    on.move(5, 5, kNoButton);
    on.canvas.pointerDoubleClicked({MouseButton::kLeft, 0, 3, 3});
    on.move(4, 4);
    on.release(4, 4);
    EXPECT_EQ(on.events(), Events{}) << "passed over";
    on.canvas.pointerDoubleClicked({kRight, 0, 3, 3});
    EXPECT_EQ(on.events(), Events{"down 2 0 -7 -7"});
}

TEST(ucCanvas, RepeatsAPressForADoubleClick) {
    CanvasOnHost on(30, 30, 60, 60);
    on.drag(10, 10, 8, 9);
    on.events();
    on.canvas.pointerDoubleClicked({MouseButton::kLeft, ShiftState::kShift, 1, 1});
    on.move(7, 9);
    EXPECT_EQ(on.events(), (Events{"down 1 0 25 25", "scroll", "move 1 0 25 25"}));
    on.release(7, 9);
    on.events();
    on.canvas.pointerDoubleClicked({kRight, ShiftState::kShift, 1, 1});
    EXPECT_EQ(on.events(), Events{"down 2 1 19 17"});
}

TEST(ucCanvas, DragsThePictureByHand) {
    CanvasOnHost on(30, 30, 60, 40);  // scrolls by 30 and 10, from 15 and 5
    on.press(10.4F, 10);
    on.move(7.6F, 11.2F);  // 10 - 7.6 + 15 and 10 - 11.2 + 5
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{30, 10, 17, 4}));
    EXPECT_EQ(on.host.screen().at(0, 0), picturePixel(17, 4));
    EXPECT_EQ(on.events(), (Events{"down 1 0 25 15", "scroll", "move 1 0 25 15"}));
    on.move(8, 11);
    EXPECT_EQ(on.events(), Events{"move 1 0 25 15"});
    on.move(300, -300);
    EXPECT_EQ(on.canvas.GetScrollInfo(), (ScrollInfo{30, 10, 0, 10}));
    on.release(300, -300);
    on.move(10, 10, kNoButton);
    EXPECT_EQ(on.canvas.GetScrollInfo().lHPos, 0);

    on.events();
    on.canvas.SetScrollInfo(5, 5);
    EXPECT_EQ(on.events(), Events{});
    on.canvas.setFitMode(true);
    on.drag(15, 15, 14, 15);
    EXPECT_EQ(on.canvas.GetScrollInfo().lHPos, 6);
    EXPECT_EQ(on.events()[1], "scroll");
    on.canvas.setFitMode(false);
    on.press(15, 15, MouseButton::kMiddle);
    on.move(10, 10, MouseButton::kMiddle);
    on.release(10, 10, MouseButton::kMiddle);
    EXPECT_EQ(on.canvas.GetScrollInfo().lHPos, 6);
}

TEST(ucCanvas, ShowsTheCursorOfItsMode) {
    CanvasOnHost on(30, 30, 60, 20);
    EXPECT_EQ(on.host.cursor, Cursor::HandOver);
    on.press(15, 15);
    EXPECT_EQ(on.host.cursor, Cursor::HandCatch);
    on.release(15, 15);
    EXPECT_EQ(on.host.cursor, Cursor::HandOver);
    on.move(15, 2, kNoButton);
    EXPECT_EQ(on.host.cursor, Cursor::Default) << "over the margin";
    on.press(15, 2);
    EXPECT_EQ(on.host.cursor, Cursor::HandCatch);
    on.release(15, 15);
    on.canvas.setWorkMode(ucCanvas::kPickColorMode);
    EXPECT_EQ(on.host.cursor, Cursor::PickColor);
    on.canvas.setWorkMode(ucCanvas::kCropMode);
    EXPECT_EQ(on.host.cursor, Cursor::Default);
    on.canvas.setWorkMode(ucCanvas::kScrollMode);
    EXPECT_EQ(on.host.cursor, Cursor::HandOver);
    on.canvas.setFitMode(true);
    on.canvas.Resize();
    EXPECT_EQ(on.host.cursor, Cursor::Default);
    on.press(15, 15);
    EXPECT_EQ(on.host.cursor, Cursor::Default);
    on.release(15, 15);
    on.canvas.setFitMode(false);
    on.host.resize(60, 30, 1);
    EXPECT_EQ(on.host.cursor, Cursor::Default);
}

TEST(ucCanvas, PassesKeysOnOutsideGestures) {
    CanvasOnHost on(30, 30, 60, 60);
    const auto key = [&](std::int16_t code, std::int16_t shift) {
        return on.canvas.keyPressed({code, shift});
    };
    EXPECT_TRUE(key(KeyCode::kUp, 0));
    EXPECT_TRUE(key(KeyCode::kAdd, 0));
    EXPECT_FALSE(key(KeyCode::kEscape, ShiftState::kAlt));
    EXPECT_EQ(on.events(), (Events{"key 38 0", "key 107 0", "key 27 4"}));
    on.press(5, 5);
    EXPECT_TRUE(key(KeyCode::kEscape, 0));
    on.release(5, 5);
    EXPECT_EQ(on.events(), (Events{"down 1 0 20 20", "up 1 0 20 20"}));
}

TEST(ucCanvas, TakesNoInputWhileDisabled) {
    CanvasOnHost on(30, 30, 60, 60);
    on.press(5, 5);
    on.events();
    on.canvas.setEnabled(false);
    on.move(9, 9);
    EXPECT_EQ(on.events(), Events{});
    on.release(9, 9);
    EXPECT_EQ(on.events(), Events{"up 1 0 24 24"});
    on.drag(5, 5, 9, 9);
    on.canvas.pointerDoubleClicked({MouseButton::kLeft, 0, 5, 5});
    on.canvas.wheelTurned({0, 5, 5, 0, 120});
    EXPECT_FALSE(on.canvas.keyPressed({KeyCode::kUp, 0}));
    EXPECT_EQ(on.events(), Events{});
}

TEST(ucCanvas, ScrollsByTheWheel) {
    CanvasOnHost on(30, 30, 300, 300);
    const auto turn = [&](std::int16_t shift, int horizontal, int vertical) {
        on.canvas.wheelTurned({shift, 10, 10, horizontal, vertical});
        const ScrollInfo at = on.canvas.GetScrollInfo();
        EXPECT_EQ(on.host.screen().at(0, 0), picturePixel(at.lHPos, at.lVPos));
        return std::pair(at.lHPos, at.lVPos);
    };
    EXPECT_EQ(turn(0, 0, 120), std::pair(135, 87));
    EXPECT_EQ(turn(ShiftState::kShift, 0, -120), std::pair(183, 87));
    EXPECT_EQ(turn(0, 120, -240), std::pair(135, 183));
    EXPECT_EQ(on.events(), Events(3, "scroll"));
    EXPECT_EQ(turn(0, 0, 2), std::pair(135, 183)) << "not a pixel yet";
    EXPECT_EQ(on.events(), Events{});
    EXPECT_EQ(turn(0, 0, 3), std::pair(135, 181));
    EXPECT_EQ(turn(0, 12000, 0), std::pair(0, 181));
    EXPECT_EQ(on.events(), Events(2, "scroll"));
    turn(0, 120, 0);
    on.press(10, 10);
    turn(0, 0, 120);
    on.release(10, 10);
    EXPECT_EQ(on.events(), (Events{"down 1 0 10 191", "up 1 0 10 191"})) << "at the end, and in a gesture";
    on.host.resize(30, 30, 2);
    const int from = on.canvas.GetScrollInfo().lVPos;
    EXPECT_EQ(turn(0, 0, 120).second, from - 96);
    on.canvas.setFitMode(true);
    on.canvas.Resize();
    on.events();
    on.canvas.wheelTurned({0, 10, 10, 0, 120});
    EXPECT_EQ(on.events(), Events{});
}

TEST(ucCanvas, ZoomsAboutThePixelUnderThePointer) {
    CanvasOnHost on(80, 60, 100, 90);
    const auto pixelAt = [&](float x, float y) {
        return on.host.screen().at(static_cast<int>(x), static_cast<int>(y));
    };
    const auto zoom = [&](float x, float y, int turns) {
        on.canvas.wheelTurned({ShiftState::kControl, x, y, 0, turns});
        return on.canvas.Zoom();
    };
    for (const auto& [x, y] : {std::pair{40.F, 30.F}, {0.F, 0.F}, {79.F, 59.F}, {13.F, 57.F}}) {
        for (const int turns : {120, 120, 240, 120, -120, -360, -120, 1200, -600, -480}) {
            const std::uint32_t before = pixelAt(x, y);
            zoom(x, y, turns);
            if (on.canvas.Zoom() == 1) break;  // the picture's edges may be in view
            EXPECT_EQ(pixelAt(x, y), before) << on.canvas.Zoom() << " times at " << x << ' ' << y;
        }
    }
    EXPECT_EQ(zoom(5, 5, 12000), 100);
    on.events();
    EXPECT_EQ(zoom(5, 5, 120), 100);
    EXPECT_EQ(on.events(), Events{});
    EXPECT_EQ(zoom(5, 5, -60), 100);
    EXPECT_EQ(zoom(5, 5, -60), 99);
    EXPECT_EQ(on.events(), (Events{"resize", "zoom"}));
    EXPECT_EQ(zoom(5, 5, -120000), 1);
    EXPECT_EQ(on.host.cursor, Cursor::HandOver);
    on.canvas.setZoom(200);
    on.canvas.Resize();
    EXPECT_EQ(zoom(5, 5, 120), 200);
    EXPECT_EQ(zoom(5, 5, -120), 199);
}

TEST(ucCanvas, StandsEveryChangeFromInsideItsEvents) {
    const struct {
        const char* what;
        void (*change)(ucCanvas& canvas);
    } cases[] = {
        {"destroy", [](ucCanvas& canvas) { canvas.DIB.Destroy(); }},
        {"destroy, lay out", [](ucCanvas& canvas) { canvas.DIB.Destroy(), canvas.Resize(); }},
        {"another", [](ucCanvas& canvas) { test::fillPicture(canvas.DIB, 7, 5), canvas.Resize(); }},
        {"another, not laid out", [](ucCanvas& canvas) { test::fillPicture(canvas.DIB, 200, 3); }},
        {"zoom", [](ucCanvas& canvas) { canvas.setZoom(canvas.Zoom() % 4 + 1), canvas.Resize(); }},
        {"fit", [](ucCanvas& canvas) { canvas.setFitMode(!canvas.FitMode()), canvas.Resize(); }},
        {"mode", [](ucCanvas& canvas) { canvas.setWorkMode((canvas.WorkMode() + 1) % 3); }},
        {"size", [](ucCanvas& canvas) { canvas.setSize(canvas.width() % 40, 30, 1); }},
        {"no size", [](ucCanvas& canvas) { canvas.setSize(0, 0, 1); }},
        {"no window", [](ucCanvas& canvas) { canvas.setHost(nullptr); }},
    };
    for (const auto& [what, change] : cases) {
        for (const int mode : {ucCanvas::kScrollMode, ucCanvas::kCropMode}) {
            CanvasOnHost on(30, 30, 60, 60);
            on.canvas.setWorkMode(mode);
            const auto changeIt = [&, change = change] { change(on.canvas); };
            const auto changeByMouse = [=](int, int, int, int) { changeIt(); };
            on.canvas.MouseDown.connect(changeByMouse);
            on.canvas.MouseMove.connect(changeByMouse);
            on.canvas.MouseUp.connect(changeByMouse);
            on.canvas.Scroll.connect(changeIt);
            on.canvas.CropDone.connect(changeIt);
            bool isInside = false;
            on.canvas.Resized.connect([&] {
                if (std::exchange(isInside, true)) return;
                changeIt();
                isInside = false;
            });
            on.host.chosenLine = 0;
            for (int turn = 0; turn < 3; ++turn) {
                on.drag(20, 20, 5, 9);
                on.press(6, 10, kRight);
                on.press(27, 2);
                on.canvas.wheelTurned({0, 9, 9, 0, -60});
                on.canvas.wheelTurned({ShiftState::kControl, 9, 9, 0, 120});
                on.release(9, 9);
                on.canvas.wheelTurned({ShiftState::kControl, 9, 9, 0, 120});
                on.canvas.Resize();
            }
            isInside = true;  // from here on nothing changes
            on.canvas.setHost(&on.host);
            test::fillPicture(on.canvas.DIB, 60, 60);
            on.canvas.setWorkMode(ucCanvas::kScrollMode);
            on.canvas.setFitMode(false);
            on.canvas.setZoom(1);
            on.host.resize(30, 30, 1);
            on.canvas.SetScrollInfo(3, 4);
            EXPECT_EQ(on.host.screen().at(0, 0), picturePixel(3, 4)) << what << " in mode " << mode;
            EXPECT_EQ(on.host.screen().at(29, 29), picturePixel(32, 33)) << what << " in mode " << mode;
        }
    }
}

}  // namespace
}  // namespace mobrel
