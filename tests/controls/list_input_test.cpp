// SPDX-License-Identifier: MIT
// What the user does with the list control: keys, mouse, wheel, the editor.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "controls/list_window.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::kBorder;
using test::kRow;
using test::kRows;
using test::ListWindow;
using test::selectionOf;

constexpr float kSurfaceHeight = kRows * kRow;

PointerInput atSurfaceY(float y, std::int16_t button = MouseButton::kLeft) {
    return {button, 0, 10, y + kBorder};
}

TEST(ListKeys, MoveTheCurrentItem) {
    const struct {
        int from;
        std::int16_t key;
        int to, top;
        const char* log;
    } cases[] = {
        {3, KeyCode::kUp, 2, 0, "Index2 KeyDown38 "},
        {0, KeyCode::kUp, 0, 0, "KeyDown38 "},
        {4, KeyCode::kDown, 5, 1, "Top1 Index5 KeyDown40 "},
        {11, KeyCode::kDown, 11, 7, "KeyDown40 "},
        {1, KeyCode::kPageDown, 6, 2, "Top2 Index6 KeyDown34 "},
        {9, KeyCode::kPageDown, 11, 7, "Top7 Index11 KeyDown34 "},
        {7, KeyCode::kPageUp, 2, 2, "Top2 Index2 KeyDown33 "},
        {3, KeyCode::kPageUp, 0, 0, "Index0 KeyDown33 "},
        {11, KeyCode::kHome, 0, 0, "Top0 Index0 KeyDown36 "},
        {2, KeyCode::kEnd, 11, 7, "Top7 Index11 KeyDown35 "},
        {2, KeyCode::kSpace, 2, 0, "Click KeyDown32 "},
    };
    for (const auto& c : cases) {
        ListWindow window(12);
        window.list.setListIndex(c.from);
        window.takeLog();
        EXPECT_TRUE(window.list.keyPressed({c.key, 0})) << c.from << " key " << c.key;
        EXPECT_EQ(std::tuple(window.list.ListIndex(), window.list.TopIndex(), window.takeLog()),
                  std::tuple(c.to, c.top, std::string(c.log)))
            << c.from << " key " << c.key;
        EXPECT_EQ(window.list.SelectedCount(), 1);
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListKeys, WithoutACurrentItemTheyAreOnlyTold) {
    for (const int count : {0, 3}) {
        ListWindow window(count);
        EXPECT_FALSE(window.list.keyPressed({KeyCode::kDown, 0}));
        window.list.keyTyped(U'\u20AC');
        window.list.keyReleased({KeyCode::kDown, 0});
        EXPECT_EQ(window.takeLog(), "KeyDown40 KeyPress8364 KeyUp40 ");
    }
}

TEST(ListKeys, SpaceTogglesInMultipleSelectionOnly) {
    ListWindow window(3);
    window.list.setListIndex(1);
    window.key(KeyCode::kSpace);
    EXPECT_EQ(selectionOf(window.list), "010");
    window.list.setSelectMode(ListSelectMode::Multiple);
    window.key(KeyCode::kSpace);
    EXPECT_EQ(selectionOf(window.list), "000");
    window.key(KeyCode::kSpace);
    EXPECT_EQ(selectionOf(window.list), "010");
}

TEST(ListMouse, ClicksSelect) {
    ListWindow window(3);
    window.click(1);
    EXPECT_EQ(window.takeLog(), "Index1 MouseDown MouseUp Click ");
    EXPECT_EQ(window.host.captures, 1);
    window.click(4);  // no item there
    EXPECT_EQ(window.takeLog(), "MouseDown MouseUp Click ");
    window.press(2, MouseButton::kRight);
    window.release(2, MouseButton::kRight);
    EXPECT_EQ(window.takeLog(), "MouseDown MouseUp ");
    window.list.pointerDoubleClicked(ListWindow::over(1));
    window.release(1);
    EXPECT_EQ(window.takeLog(), "DblClick MouseUp ");
    EXPECT_EQ(selectionOf(window.list), "010");

    window.list.setListIndex(-1);
    window.takeLog();
    window.click(4);
    window.list.pointerDoubleClicked(ListWindow::over(1));
    EXPECT_EQ(window.takeLog(), "MouseDown MouseUp ");
}

TEST(ListMouse, TheBorderAndADisabledListHearNothing) {
    ListWindow window(3);
    for (const PointerInput& input :
         {PointerInput{MouseButton::kLeft, 0, 1, 20}, atSurfaceY(-1), atSurfaceY(kSurfaceHeight),
          PointerInput{MouseButton::kLeft, 0, 99, 20}}) {
        window.list.pointerPressed(input);
        window.list.pointerReleased({MouseButton::kLeft, 0, 1, 1});
    }
    EXPECT_EQ(window.takeLog(), "MouseUp MouseUp MouseUp MouseUp ");
    window.list.setEnabled(false);
    window.click(1);
    window.key(KeyCode::kDown);
    window.list.selectAccessibleItem(1);
    EXPECT_EQ(std::tuple(window.takeLog(), window.list.ListIndex()), std::tuple("", -1));
}

TEST(ListMouse, ADragPaintsTheStateOfItsFirstRow) {
    ListWindow window(5);
    ucCoolList& list = window.list;
    list.setSelectMode(ListSelectMode::Multiple);
    window.press(1);
    window.move(1);
    window.move(2);
    window.move(3);
    window.release(3);
    EXPECT_EQ(std::tuple(selectionOf(list), list.ListIndex()), std::tuple("01110", 3));
    window.press(3);
    window.move(2);
    window.release(2);
    window.move(4, MouseButton::kNone);
    EXPECT_EQ(std::tuple(selectionOf(list), list.ListIndex()), std::tuple("01000", 2));
    window.press(1);
    window.move(3, MouseButton::kNone);  // the release went elsewhere
    EXPECT_EQ(list.ListIndex(), 1);
}

TEST(ListMouse, HoverSelects) {
    ListWindow window(3);
    window.list.setHoverSelection(true);
    const int expected[] = {0, 2, 2};  // behind the last item nothing changes
    const int rows[] = {0, 2, 4};
    for (int i = 0; i < 3; ++i) {
        window.move(rows[i], MouseButton::kNone);
        EXPECT_EQ(window.list.ListIndex(), expected[i]);
    }
    window.takeLog();
    window.move(2, MouseButton::kNone);  // the row of the last selection
    EXPECT_EQ(window.takeLog(), "MouseMove ");
}

TEST(ListMouse, AutoScrollsFasterTheFartherOutside) {
    const struct {
        float y;
        int stepTime;
        double scale;
    } cases[] = {
        {-1, 480, 1},
        {-10, 300, 1},
        {-23, 40, 1},
        {-500, 40, 1},
        {kSurfaceHeight, 520, 1},
        {kSurfaceHeight + 11, 300, 1},
        {kSurfaceHeight + 300, 40, 1},
        {-20, 300, 2},
        {2 * kSurfaceHeight + 22, 300, 2},
    };
    for (const auto& c : cases) {
        const bool isUpward = c.y < 0;
        ListWindow window(100);
        const int border = static_cast<int>(kBorder * c.scale);
        window.host.resize(200, static_cast<int>(kSurfaceHeight * c.scale) + 2 * border, c.scale);
        ucCoolList& list = window.list;
        list.setListIndex(50);
        const int row = isUpward ? list.TopIndex() : list.TopIndex() + kRows - 1;
        const auto place = [&](float y) {
            return PointerInput{MouseButton::kLeft, 0, 10, y + static_cast<float>(border)};
        };
        list.pointerPressed(place(static_cast<float>((row - list.TopIndex()) * kRow * c.scale + 3)));
        window.host.pendingEvents = [&] {
            // just before the third step: each comes after more than the step time
            if (window.host.now == 3U * static_cast<unsigned>(c.stepTime) + 3) {
                list.pointerReleased(place(c.y));
            }
        };
        window.host.now = 0;
        list.pointerMoved(place(c.y));
        EXPECT_EQ(list.ListIndex(), isUpward ? row - 2 : row + 2) << c.y << " at scale " << c.scale;
        EXPECT_EQ(window.host.now, 3U * static_cast<unsigned>(c.stepTime) + 3);
        EXPECT_GT(window.host.waitAsked, 0) << "it would keep a processor busy";
    }
}

TEST(ListMouse, AutoScrollPaintsAndFollowsNestedMoves) {
    ListWindow window(12);
    ucCoolList& list = window.list;
    list.setSelectMode(ListSelectMode::Multiple);
    window.press(4);
    int steps = 0;
    list.ListIndexChange.connect([&] { ++steps; });
    window.host.millisecondsPerLook = 50;
    window.host.pendingEvents = [&] {
        if (steps == 2) list.pointerMoved(atSurfaceY(-200));  // out at the other side
        if (steps == 5) list.pointerMoved(atSurfaceY(20));    // back in
    };
    list.pointerMoved(atSurfaceY(kSurfaceHeight + 200));
    // down over 5 and 6, up over 5, 4, 3; then the row under the pointer
    EXPECT_EQ(selectionOf(list), "000111100000");
    EXPECT_EQ(list.ListIndex(), list.TopIndex() + 1);
}

TEST(ListMouse, AutoScrollStopsAtTheEndsAndWhenTheListGoes) {
    ListWindow window(6);
    ucCoolList& list = window.list;
    window.press(4);
    window.host.millisecondsPerLook = 1000;
    int looks = 0;
    window.host.pendingEvents = [&] {
        if (++looks == 5) list.Clear();
        if (looks == 8) list.setHost(nullptr);
    };
    list.pointerMoved(atSurfaceY(kSurfaceHeight + 5));
    EXPECT_EQ(std::tuple(looks, list.ListIndex(), list.ListCount()), std::tuple(8, -1, 0));
}

TEST(ListWheel, ScrollsThreeRowsANotchAndAddsUpFineSteps) {
    ListWindow window(20);
    const struct {
        int turn, top;
    } cases[] = {{-120, 3}, {-30, 3}, {-30, 4}, {-30, 5}, {30, 5}, {30, 4}, {240, 0}, {-2400, 15}};
    for (const auto& c : cases) {
        window.list.wheelTurned({.vertical = c.turn});
        EXPECT_EQ(window.list.TopIndex(), c.top) << c.turn;
    }
    window.list.Clear();
    window.takeLog();
    window.list.wheelTurned({.vertical = -120});
    EXPECT_EQ(window.takeLog(), "");
}

TEST(ListScrollBar, StandsThereWhileItIsNeeded) {
    ListWindow window(kRows);
    test::FakeScrollBar& bar = window.host.scrollBar;
    EXPECT_FALSE(bar.Visible());
    window.list.AddItem("5");
    EXPECT_TRUE(bar.Visible());
    EXPECT_EQ(bar.placed, (Rect{81, 2, 98, 67}));
    window.takeLog();
    bar.setValue(1);  // the user clicks on an arrow
    EXPECT_EQ(std::tuple(window.list.TopIndex(), window.takeLog()), std::tuple(1, "Scroll Top1 "));
    window.list.setListIndex(5);
    EXPECT_EQ(std::tuple(bar.Value(), window.list.TopIndex()), std::tuple(32767, 1));
    window.list.AddItem("6");
    EXPECT_LT(bar.Value(), 32767) << "its arrow would be dead";
    window.takeLog();
    window.list.RemoveItem(0);
    window.list.RemoveItem(0);
    EXPECT_EQ(std::tuple(bar.Visible(), window.list.TopIndex()), std::tuple(false, 0));
    EXPECT_EQ(window.takeLog(), "Index4 Index3 Scroll Top0 ");
}

TEST(ListEdit, EndsByKeysLossAndCode) {
    const struct {
        const char* name;
        void (*end)(ListWindow&);
        const char* text;
        int index;
    } cases[] = {
        {"Enter", [](ListWindow& w) { w.host.edit.KeyDown.raise(KeyCode::kEnter); }, "typed", -1},
        {"Escape", [](ListWindow& w) { w.host.edit.KeyDown.raise(KeyCode::kEscape); }, "1", -1},
        {"focus", [](ListWindow& w) { w.host.edit.close(); }, "1", 1},
        {"saved", [](ListWindow& w) { w.list.EndEdit(true); }, "typed", -1},
        {"not saved", [](ListWindow& w) { w.list.EndEdit(false); }, "1", 1},
        {"scrolled", [](ListWindow& w) { w.list.wheelTurned({.vertical = -40}); }, "1", 1},
        {"other item", [](ListWindow& w) { w.list.setListIndex(3); }, "1", 3},
        {"size", [](ListWindow& w) { w.host.resize(120, 100, 1); }, "1", 1},
        {"disabled", [](ListWindow& w) { w.list.setEnabled(false); }, "1", 1},
    };
    for (const auto& c : cases) {
        ListWindow window(9);
        window.list.setListIndex(1);
        window.list.StartEdit();
        EXPECT_TRUE(window.host.edit.isOpen);
        EXPECT_EQ(window.host.edit.contents, "1");
        window.host.edit.contents = "typed";
        c.end(window);
        EXPECT_FALSE(window.host.edit.isOpen) << c.name;
        EXPECT_EQ(std::tuple(window.list.ItemText(1), window.list.ListIndex()),
                  std::tuple(std::string(c.text), c.index))
            << c.name;
        window.host.edit.KeyDown.raise(KeyCode::kEnter);  // comes too late
        EXPECT_EQ(window.list.ItemText(1), c.text) << c.name;
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListEdit, StandsOverTheText) {
    const struct {
        bool wraps, isSelected;
        ListLook look;
        bool looksSelected;
        Rect place;
    } cases[] = {
        {true, true, ListLook::Solid, true, {12, 22, 90, 30}},
        {true, true, ListLook::Bold, false, {12, 22, 90, 30}},
        {true, false, ListLook::Solid, false, {12, 22, 90, 30}},
        {false, true, ListLook::Solid, true, {8, 19, 94, 32}},
    };
    for (const auto& c : cases) {
        ListWindow window(2);
        ucCoolList& list = window.list;
        list.setItemHeightAuto(false);
        list.setItemHeight(16);
        list.setItemOffset(4);
        list.setWordWrap(c.wraps);
        list.setAlignment(ListAlignment::Right);
        list.setSelectModeStyle(c.look);
        list.setListIndex(1);
        list.setItemSelected(1, c.isSelected);
        list.StartEdit();
        const EditBox::Look& look = window.host.edit.look;
        EXPECT_EQ(look.place, c.place);
        EXPECT_EQ(std::tuple(look.alignment, look.wrapsLines),
                  std::tuple(c.wraps ? DT_RIGHT : DT_LEFT, c.wraps));
        const auto background = c.looksSelected ? SystemColor::Highlight : SystemColor::Window;
        const auto text = c.looksSelected ? SystemColor::HighlightText : SystemColor::WindowText;
        EXPECT_EQ(std::tuple(look.background, look.text),
                  std::tuple(GetSysColor(background), GetSysColor(text)));
    }
}

TEST(ListEdit, NeedsACurrentItemAndFixesTheRowsWhileItIsOpen) {
    ListWindow window(20);
    window.list.StartEdit();
    EXPECT_FALSE(window.host.edit.isOpen);
    window.list.setListIndex(12);
    window.list.setTopIndex(0);
    window.list.StartEdit();
    EXPECT_EQ(std::tuple(window.host.edit.isOpen, window.list.TopIndex()), std::tuple(true, 8));
    window.list.setListIndex(3);
    EXPECT_EQ(window.list.TopIndex(), 8);
    window.list.setListIndex(12);
    window.list.StartEdit();
    window.host.edit.close();
    window.list.setListIndex(3);
    EXPECT_EQ(window.list.TopIndex(), 3);
}

}  // namespace
}  // namespace mobrel
