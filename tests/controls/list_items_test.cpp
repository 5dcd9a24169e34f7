// SPDX-License-Identifier: MIT
// Items, selection, searching and sorting of the list control, its handlers, and assistive programs.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <tuple>

#include "controls/list_window.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::addItems;
using test::errorOf;
using test::kRow;
using test::ListWindow;
using test::selectionOf;
using test::textsOf;

TEST(ListItems, OutOfRange) {
    const struct {
        const char* name;
        std::function<void(ucCoolList&)> call;
        int count;
        int error;
    } cases[] = {
        {"index -2", [](ucCoolList& l) { l.setListIndex(-2); }, 3, 380},
        {"index -1", [](ucCoolList& l) { l.setListIndex(-1); }, 0, 0},
        {"index of an empty list", [](ucCoolList& l) { l.setListIndex(0); }, 0, 380},
        {"index behind the last", [](ucCoolList& l) { l.setListIndex(3); }, 3, 380},
        {"top -1", [](ucCoolList& l) { l.setTopIndex(-1); }, 9, 380},
        {"top at its end", [](ucCoolList& l) { l.setTopIndex(4); }, 9, 0},
        {"top behind its end", [](ucCoolList& l) { l.setTopIndex(5); }, 9, 380},
        {"top of a list that does not scroll", [](ucCoolList& l) { l.setTopIndex(0); }, 3, 380},
        {"insert in an empty list", [](ucCoolList& l) { l.InsertItem(0, "x"); }, 0, 381},
        {"insert behind the last", [](ucCoolList& l) { l.InsertItem(3, "x"); }, 3, 0},
        {"insert too far", [](ucCoolList& l) { l.InsertItem(4, "x"); }, 3, 381},
        {"insert before the first", [](ucCoolList& l) { l.InsertItem(-1, "x"); }, 3, 381},
        {"modify in an empty list", [](ucCoolList& l) { l.ModifyItem(0, "x"); }, 0, 381},
        {"modify the spare record", [](ucCoolList& l) { l.ModifyItem(3, "x"); }, 3, 0},
        {"modify too far", [](ucCoolList& l) { l.ModifyItem(4, "x"); }, 3, 381},
        {"remove from an empty list", [](ucCoolList& l) { l.RemoveItem(0); }, 0, 381},
        {"remove behind the last", [](ucCoolList& l) { l.RemoveItem(3); }, 3, 381},
        {"find in an empty list", [](ucCoolList& l) { l.FindFirst("x"); }, 0, 381},
        {"find from -1", [](ucCoolList& l) { l.FindFirst("x", -1); }, 3, 381},
        {"text", [](ucCoolList& l) { return l.ItemText(3); }, 3, 381},
        {"icon", [](ucCoolList& l) { return l.ItemIcon(-1); }, 3, 381},
        {"set text", [](ucCoolList& l) { l.setItemText(3, "x"); }, 3, 381},
        {"set selected", [](ucCoolList& l) { l.setItemSelected(3, true); }, 3, 381},
    };
    for (const auto& c : cases) {
        ListWindow window(c.count);
        EXPECT_EQ(errorOf([&] { c.call(window.list); }), c.error) << c.name;
    }
}

TEST(ListItems, InsertAndRemoveMoveTheCurrentItemAndTheSelection) {
    for (const auto mode : {ListSelectMode::Single, ListSelectMode::Multiple}) {
        const bool isMultiple = mode == ListSelectMode::Multiple;
        ListWindow window(4);
        ucCoolList& list = window.list;
        list.setSelectMode(mode);
        window.click(2);
        if (isMultiple) list.setItemSelected(0, true);

        list.InsertItem(2, "new", 7, 8);
        EXPECT_EQ(std::tuple(textsOf(list), list.ListIndex(), list.ItemIcon(2), list.ItemIconSelected(2)),
                  std::tuple("0 1 new 2 3", 3, 7, 8));
        EXPECT_EQ(selectionOf(list), isMultiple ? "10010" : "00010");
        list.InsertItem(5, "end");
        list.RemoveItem(1);
        EXPECT_EQ(std::tuple(textsOf(list), list.ListIndex()), std::tuple("0 new 2 3 end", 2));
        EXPECT_EQ(selectionOf(list), isMultiple ? "10100" : "00100");
        list.RemoveItem(2);
        EXPECT_EQ(std::tuple(textsOf(list), list.ListIndex(), list.SelectedCount()),
                  std::tuple("0 new 3 end", -1, isMultiple ? 1 : 0));
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListItems, AnInsertedItemDoesNotScrollTheCurrentOneIntoView) {
    ListWindow window(20);
    window.list.setListIndex(3);
    window.list.setTopIndex(10);
    window.list.InsertItem(0, "new");
    EXPECT_EQ(std::tuple(window.list.ListIndex(), window.list.TopIndex()), std::tuple(4, 10));
    window.list.setListIndex(4);
    EXPECT_EQ(window.list.TopIndex(), 4);
}

TEST(ListItems, ModifyTakesOnlyWhatIsGiven) {
    ucCoolList list;
    list.AddItem("old", 1, 2);
    list.ModifyItem(0);
    list.ModifyItem(0, "0", -5, 9);
    EXPECT_EQ(std::tuple(list.ItemText(0), list.ItemIcon(0), list.ItemIconSelected(0)),
              std::tuple("old", 1, 9));
    list.ModifyItem(0, "", 0);
    EXPECT_EQ(std::tuple(list.ItemText(0), list.ItemIcon(0), list.ItemIconSelected(0)), std::tuple("", 0, 9));
}

TEST(ListItems, FindFirst) {
    ucCoolList list;
    for (const char* text : {"Apple pie", "", "pineapple", "\xC3\x84PFEL", "\xD0\x9C\xD0\x98\xD0\xA0 x"}) {
        list.AddItem(text);
    }
    list.ModifyItem(5, "spare");
    const struct {
        const char* text;
        int start;
        bool exact;
        int expected;
    } cases[] = {
        {"APPLE", 0, true, 0},      {"apple", 0, false, 2},  // not the item that begins with it
        {"apple", 1, true, -1},     {"p", 0, false, 0},
        {"\xC3\xA4pf", 0, true, 3}, {"\xD0\xB8\xD1\x80", 0, false, 4},
        {"", 0, true, 0},           {"", 1, true, 2},
        {"", 0, false, -1},         {"spare", 0, true, 5},
        {"nowhere", 0, true, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(list.FindFirst(c.text, c.start, c.exact), c.expected) << c.text << " from " << c.start;
    }
}

TEST(ListItems, Order) {
    const struct {
        ListOrder order;
        const char* texts;
        const char* expected;  // with the places they had
    } cases[] = {
        {ListOrder::Ascending, "b a", "a1 b0"},
        {ListOrder::Ascending, "b B a \xC3\xA9 z",
         "B1 a2 b0 z4 \xC3\xA9"
         "3"},
        {ListOrder::Ascending, "x x x", "x0 x1 x2"},
        {ListOrder::Descending, "x x x", "x2 x1 x0"},
        {ListOrder::Descending, "a c b c", "c3 c1 b2 a0"},
        // four and more items go over strides of 4 and 1, where equal ones change places
        {ListOrder::Ascending, "d c b a d c b a", "a3 a7 b2 b6 c1 c5 d0 d4"},
        {ListOrder::Descending, "a b a b a", "b3 b1 a0 a2 a4"},
    };
    for (const auto& c : cases) {
        ListWindow window;
        ucCoolList& list = window.list;
        std::string text;
        for (const char* next = c.texts;; ++next) {
            if (*next != ' ' && *next != '\0') {
                text += *next;
                continue;
            }
            list.AddItem(text, static_cast<std::int16_t>(list.ListCount()));
            text.clear();
            if (*next == '\0') break;
        }
        list.setOrderType(c.order);
        list.setListIndex(1);
        list.Order();
        std::string result;
        for (int i = 0; i < list.ListCount(); ++i) {
            result += (i > 0 ? " " : "") + list.ItemText(i) + std::to_string(list.ItemIcon(i));
        }
        EXPECT_EQ(result, c.expected) << c.texts;
        EXPECT_EQ(std::tuple(list.ListIndex(), list.SelectedCount(), list.TopIndex()), std::tuple(-1, 0, 0));
    }
}

TEST(ListItems, ClearForgetsEverything) {
    ListWindow window(20);
    window.list.setListIndex(19);
    window.takeLog();
    window.list.Clear();
    EXPECT_EQ(std::tuple(window.list.ListCount(), window.list.ListIndex(), window.list.TopIndex(),
                         window.host.scrollBar.Visible()),
              std::tuple(0, -1, -1, false));
    EXPECT_EQ(window.takeLog(), "Scroll Top-1 ");
    window.list.AddItem("again");
    EXPECT_EQ(window.list.TopIndex(), 0);
    EXPECT_EQ(window.host.shown.back(), test::rowInImage(0));
}

TEST(ListItems, HandlersMayChangeTheList) {
    using Change = std::function<void(ucCoolList&)>;
    const Change clear = [](ucCoolList& l) { l.Clear(); };
    const Change removeFirst = [](ucCoolList& l) {
        if (l.ListCount() > 0) l.RemoveItem(0);
    };
    const Change add = [](ucCoolList& l) {
        if (l.ListCount() < 60) l.AddItem("added");
    };
    const Change order = [](ucCoolList& l) { l.Order(); };
    const Change edit = [](ucCoolList& l) { l.StartEdit(); };
    for (const Change& change : {clear, removeFirst, add, order, edit}) {
        ListWindow window(20);
        ucCoolList& list = window.list;
        list.setSelectMode(ListSelectMode::Multiple);
        int depth = 0;
        const auto act = [&] {
            if (depth++ == 0) change(list);
            --depth;
        };
        test::hearAll(list, act);
        for (int round = 0; round < 3; ++round) {
            window.click(4);
            window.move(1, MouseButton::kNone);
            for (const std::int16_t code : {KeyCode::kEnd, KeyCode::kUp, KeyCode::kSpace, KeyCode::kPageUp}) {
                window.key(code);
            }
            list.wheelTurned({.vertical = -120});
            if (list.ListCount() > 0) list.setListIndex(list.ListCount() - 1);
            if (list.ListCount() > 0) list.RemoveItem(list.ListCount() - 1);
            list.EndEdit(true);
        }
        EXPECT_LT(list.ListIndex(), list.ListCount());
        EXPECT_LE(list.TopIndex(), std::max(list.ListCount() - test::kRows, 0));
        EXPECT_TRUE(window.host.isAllShown());
    }
}

TEST(ListItems, HandlersMayEndTheList) {
    const std::function<void(ListWindow&)> steps[] = {
        [](ListWindow& w) { w.press(4); },
        [](ListWindow& w) { w.release(4); },
        [](ListWindow& w) { w.list.pointerDoubleClicked(ListWindow::over(4)); },
        [](ListWindow& w) { w.key(KeyCode::kEnd); },
        [](ListWindow& w) { w.key(KeyCode::kSpace); },
        [](ListWindow& w) { w.list.RemoveItem(19); },
        [](ListWindow& w) { w.list.wheelTurned({.vertical = 120}); },
        [](ListWindow& w) { w.host.scrollBar.setValue(0); },
        [](ListWindow& w) { w.list.setListIndex(5); },
        [](ListWindow& w) { w.list.InsertItem(0, "new"); },
        [](ListWindow& w) { w.list.setTopIndex(14); },
        [](ListWindow& w) { w.list.StartEdit(); },
        [](ListWindow& w) { w.host.edit.KeyDown.raise(KeyCode::kEnter); },
        [](ListWindow& w) { w.list.selectAccessibleItem(9); },
        [](ListWindow& w) { w.press(4); },
        [](ListWindow& w) {
            w.list.pointerMoved({MouseButton::kLeft, 0, 10, 999});
        },
        [](ListWindow& w) { w.list.setTopIndex(0); },
        [](ListWindow& w) { w.list.setListIndex(19); },
        [](ListWindow& w) { w.list.setItemHeight(kRow * 2); },
        [](ListWindow& w) { w.list.setItemHeightAuto(false); },
        [](ListWindow& w) { w.list.setTopIndex(w.list.ListCount() - 2); },
        [](ListWindow& w) { w.list.setItemHeightAuto(true); },
        [](ListWindow& w) { w.list.Order(); },
        [](ListWindow& w) { w.list.setTopIndex(3); },
        [](ListWindow& w) { w.list.Clear(); },
    };
    int last = 0;
    for (bool hasEnded = true; hasEnded;) {
        ++last;
        auto window = std::make_unique<ListWindow>(20);
        int raised = 0;
        test::hearAll(window->list, [&] {
            if (++raised == last) window.reset();
        });
        window->host.millisecondsPerLook = 50;
        int looks = 0;
        window->host.pendingEvents = [&] {
            if (++looks == 20) window->release(4);
        };
        for (const auto& step : steps) {
            if (window) step(*window);
        }
        hasEnded = window == nullptr;
        EXPECT_EQ(raised, hasEnded ? last : last - 1) << "events were raised behind the last";
    }
    EXPECT_GT(last, 35);

    auto window = std::make_unique<ListWindow>(20);  // ended by an event that the auto-scroll let in
    window->press(4);
    int raised = 0;
    test::hearAll(window->list, [&] { ++raised; });
    window->host.pendingEvents = [&] { window.reset(); };
    window->list.pointerMoved({MouseButton::kLeft, 0, 10, 999});
    EXPECT_EQ(raised, 0);
}

TEST(ListAccess, SelectsAsAUserDoes) {
    ListWindow window(9);
    ucCoolList& list = window.list;
    list.selectAccessibleItem(6);
    EXPECT_EQ(window.takeLog(), "Top2 Index6 Click ");
    list.selectAccessibleItem(9);
    list.selectAccessibleItem(-1);
    EXPECT_EQ(window.takeLog(), "");
    EXPECT_EQ(std::tuple(list.accessibleItemCount(), list.accessibleItemText(6), list.accessibleItemText(9),
                         list.accessibleValue()),
              std::tuple(9, "6", "", "6"));
    EXPECT_TRUE(list.isAccessibleItemSelected(6));
    EXPECT_FALSE(list.isAccessibleItemSelected(9));
    EXPECT_EQ(list.accessibleItemRect(6), (Rect{2, 54, 81, 67}));
    EXPECT_EQ(list.accessibleItemRect(1), Rect{});
    const int before = window.host.accessibleChanges;
    list.setItemText(6, "six");
    EXPECT_EQ(window.host.accessibleChanges, before + 1);
}

TEST(ListItems, AThousandItemsWithoutAWindow) {
    ucCoolList list;
    addItems(list, 1000);
    list.setListIndex(700);
    test::FakeHost host(list, 80, 10 * test::kRow + 2 * test::kBorder);
    EXPECT_EQ(std::tuple(list.TopIndex(), list.ItemSelected(700)), std::tuple(691, true));
    list.Order();
    EXPECT_EQ(std::tuple(list.ItemText(0), list.ItemText(999), list.TopIndex()), std::tuple("0", "999", 0));
}

}  // namespace
}  // namespace mobrel
