// SPDX-License-Identifier: MIT
// A list in a window of its own, for tests: five rows of 13 pixels, and a log of all events.
#pragma once

#include <string>
#include <utility>

#include "controls/ucCoolList.hpp"
#include "support/FakeHost.hpp"

namespace mobrel::test {

constexpr int kRow = 13;
constexpr int kRows = 5;
constexpr int kBorder = 2;

inline void addItems(ucCoolList& list, int count) {
    for (int i = 0; i < count; ++i) list.AddItem(std::to_string(i));
}

/// The texts of all items with a blank between.
inline std::string textsOf(const ucCoolList& list) {
    std::string texts;
    for (int i = 0; i < list.ListCount(); ++i) texts += (i > 0 ? " " : "") + list.ItemText(i);
    return texts;
}

/// One digit an item, 1 for a selected one.
inline std::string selectionOf(const ucCoolList& list) {
    std::string digits;
    for (int i = 0; i < list.ListCount(); ++i) digits += list.ItemSelected(i) ? '1' : '0';
    return digits;
}

struct ListWindow {
    explicit ListWindow(int items = 0, int width = 100, int height = kRows * kRow + 2 * kBorder)
        : host(list, width, height) {
        addItems(list, items);
        listen();
        host.shown.clear();
    }

    void listen() {
        list.Click.connect([this] { log += "Click "; });
        list.DblClick.connect([this] { log += "DblClick "; });
        list.KeyDown.connect([this](auto key, auto) { log += "KeyDown" + std::to_string(key) + ' '; });
        list.KeyPress.connect([this](char32_t key) { log += "KeyPress" + std::to_string(key) + ' '; });
        list.KeyUp.connect([this](auto key, auto) { log += "KeyUp" + std::to_string(key) + ' '; });
        list.ListIndexChange.connect([this] { log += "Index" + std::to_string(list.ListIndex()) + ' '; });
        list.MouseDown.connect([this](auto, auto, float, float) { log += "MouseDown "; });
        list.MouseMove.connect([this](auto, auto, float, float) { log += "MouseMove "; });
        list.MouseUp.connect([this](auto, auto, float, float) { log += "MouseUp "; });
        list.Scroll.connect([this] { log += "Scroll "; });
        list.TopIndexChange.connect([this] { log += "Top" + std::to_string(list.TopIndex()) + ' '; });
    }

    /// The pointer over a visible row, counted from 0.
    static PointerInput over(int row, std::int16_t button = MouseButton::kLeft) {
        return {button, 0, 10, static_cast<float>(kBorder + row * kRow + 6)};
    }
    void press(int row, std::int16_t button = MouseButton::kLeft) { list.pointerPressed(over(row, button)); }
    void move(int row, std::int16_t button = MouseButton::kLeft) { list.pointerMoved(over(row, button)); }
    void release(int row, std::int16_t button = MouseButton::kLeft) {
        list.pointerReleased(over(row, button));
    }
    void click(int row) {
        press(row);
        release(row);
    }
    void key(std::int16_t code) { list.keyPressed({code, 0}); }

    std::string takeLog() { return std::exchange(log, {}); }

    ucCoolList list;
    FakeHost host;
    std::string log;
};

/// Connects a call without arguments to every event that the tests raise.
template <typename Call>
void hearAll(ucCoolList& list, const Call& call) {
    const auto any = [call](auto...) { call(); };
    for (Event<>* event :
         {&list.Click, &list.DblClick, &list.ListIndexChange, &list.Scroll, &list.TopIndexChange}) {
        event->connect(any);
    }
    for (auto* event : {&list.MouseDown, &list.MouseMove, &list.MouseUp}) event->connect(any);
    list.KeyDown.connect(any);
}

/// Where a row stands in the image of a list without a scroll bar.
inline Rect rowInImage(int row, int width = 100) {
    return {kBorder, kBorder + row * kRow, width - kBorder, kBorder + (row + 1) * kRow};
}

/// The number of the platform's error that a call ends in, 0 when it ends well.
template <typename Call>
int errorOf(Call&& call) {
    try {
        call();
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
}

}  // namespace mobrel::test
