// SPDX-License-Identifier: MIT
// A control for the tests of what shows it: it notes what it hears and draws pixels that all differ.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control/Control.hpp"

namespace mobrel::test {

class SampleControl : public Control {
 public:
    /// Of a pixel, 0x00RRGGBB.
    static unsigned pixel(int x, int y) {
        return static_cast<unsigned>((x * 3 + y * 1031) & 0xFFFFFF) ^ 0x5A0000;
    }

    void drawAll() {
        auto target = image();
        if (!target) return;
        for (int y = 0; y < target->height(); ++y) {
            for (int x = 0; x < target->width(); ++x) {
                const auto value = pixel(x, y);
                target->FillRect({x, y, x + 1, y + 1}, (value & 0xFF) << 16 | (value & 0xFF00) | value >> 16);
            }
        }
    }
    using Control::showAll;
    using Control::showChange;

    void note(std::string text) {
        heard.push_back(std::move(text));
        if (const auto todo = std::exchange(next, nullptr)) todo();
    }
    std::vector<std::string> takeHeard() { return std::exchange(heard, {}); }

    void pointerPressed(const PointerInput& input) override { note("press " + text(input)); }
    void pointerMoved(const PointerInput& input) override { note("move " + text(input)); }
    void pointerReleased(const PointerInput& input) override { note("release " + text(input)); }
    void pointerDoubleClicked(const PointerInput& input) override { note("double " + text(input)); }
    void pointerLeft() override { note("left"); }
    void wheelTurned(const WheelInput& input) override {
        note("wheel " + std::to_string(input.horizontal) + " " + std::to_string(input.vertical) + " shift " +
             std::to_string(input.shift));
    }
    bool keyPressed(const KeyInput& input) override {
        note("key " + std::to_string(input.keyCode) + " shift " + std::to_string(input.shift));
        return takesKeys;
    }
    void keyReleased(const KeyInput& input) override { note("key up " + std::to_string(input.keyCode)); }
    void keyTyped(char32_t character) override { note("typed " + std::to_string(character)); }
    void focusChanged(bool hasFocus) override { note(hasFocus ? "focus" : "no focus"); }
    void appearanceChanged() override { ++appearanceChanges; }

    AccessibleRole accessibleRole() const override { return role; }
    std::string accessibleValue() const override { return "a value"; }
    std::optional<AccessibleRange> accessibleRange() const override { return range; }
    void setAccessibleValue(std::int32_t value) override { range->value = value; }
    int accessibleItemCount() const override { return static_cast<int>(items.size()); }
    std::string accessibleItemText(int item) const override { return items[static_cast<std::size_t>(item)]; }
    bool isAccessibleItemSelected(int item) const override { return item == selected; }
    void selectAccessibleItem(int item) override { selected = item; }
    Rect accessibleItemRect(int item) const override { return {0, 10 * item, 40, 10 * item + 10}; }

    AccessibleRole role = AccessibleRole::List;
    std::optional<AccessibleRange> range;
    std::vector<std::string> items;
    int selected = -1;
    bool takesKeys = false;

    std::vector<std::string> heard;
    /// Done at the next call that is noted.
    std::function<void()> next;
    /// A height that it asks for at every size; 0 for none.
    int wantedHeight = 0;
    int sizes = 0;
    int appearanceChanges = 0;

 protected:
    void sizeChanged() override {
        ++sizes;
        if (wantedHeight != 0 && host() != nullptr && height() != wantedHeight) {
            host()->requestSize(width(), wantedHeight);
        }
        drawAll();
    }

 private:
    static std::string text(const PointerInput& input) {
        return std::to_string(input.button) + " shift " + std::to_string(input.shift) + " at " +
               std::to_string(static_cast<int>(input.x)) + "," + std::to_string(static_cast<int>(input.y));
    }
};

}  // namespace mobrel::test
