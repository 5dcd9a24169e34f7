// SPDX-License-Identifier: MIT
// A window for one control, without a window: it notes what the control asks of it, and tests set what it
// answers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/control/Control.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel::test {

/// A scroll bar without a look. A value outside its range goes to the nearer end.
class FakeScrollBar : public ScrollBar {
 public:
    std::int16_t Min() const override { return m_min; }
    std::int16_t Max() const override { return m_max; }
    std::int16_t SmallChange() const override { return m_smallChange; }
    std::int16_t LargeChange() const override { return m_largeChange; }
    std::int16_t Value() const override { return m_value; }
    void setMin(std::int16_t value) override {
        m_min = value;
        setValue(m_value);
    }
    void setMax(std::int16_t value) override {
        m_max = value;
        setValue(m_value);
    }
    void setSmallChange(std::int16_t value) override { m_smallChange = value; }
    void setLargeChange(std::int16_t value) override { m_largeChange = value; }
    void setValue(std::int16_t value) override {
        const std::int16_t inside = std::max(std::min(m_min, m_max), std::min(value, std::max(m_min, m_max)));
        if (std::exchange(m_value, inside) != inside) Change.raise();
    }

    bool Visible() const override { return m_isVisible; }
    void setVisible(bool visible) override { m_isVisible = visible; }
    int thickness() const override { return thicknessToTell; }
    void place(const Rect& rect) override { placed = rect; }

    int thicknessToTell = 17;
    Rect placed;

 private:
    std::int16_t m_min = 0;
    std::int16_t m_max = 32767;
    std::int16_t m_smallChange = 1;
    std::int16_t m_largeChange = 1;
    std::int16_t m_value = 0;
    bool m_isVisible = false;
};

/// An editor that a test types into. Closing an open one takes the keyboard from it.
class FakeEditBox : public EditBox {
 public:
    void open(std::string_view text, const Look& lookGiven) override {
        contents = text;
        look = lookGiven;
        isOpen = true;
    }
    void close() override {
        if (std::exchange(isOpen, false)) LostFocus.raise();
    }
    std::string Text() const override { return contents; }

    std::string contents;
    Look look;
    bool isOpen = false;
};

class FakeHost : public ControlHost {
 public:
    struct Menu {
        std::vector<std::string> captions;
        std::vector<bool> enabled;
        int x, y;
    };

    /// A window that nothing stands in yet.
    FakeHost() = default;
    /// Holds the control, which must outlive it, at a size, all of it on the screen.
    FakeHost(Control& control, int width, int height, double scale = 1) : m_control(&control) {
        control.setHost(this);
        resize(width, height, scale);
    }
    ~FakeHost() override {
        if (m_control != nullptr) m_control->setHost(nullptr);
    }
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    /// Gives the control another size. A window shows all of a control then, which is not noted.
    void resize(int width, int height, double scale) {
        m_control->setSize(width, height, scale);
        m_screen = copyOfImage();
        shown.clear();
    }

    /// What the control's image holds now, and what of it the user has been shown.
    PictureGrid copyOfImage() {
        PictureGrid copy(m_control->width(), m_control->height());
        if (auto image = m_control->image()) {
            copy.context().BitBlt(0, 0, copy.width(), copy.height(), *image, 0, 0);
        }
        return copy;
    }
    const PictureGrid& screen() const { return m_screen; }
    /// False when something was drawn and not shown.
    bool isAllShown() { return m_screen == copyOfImage(); }

    void show(const Rect& changed) override {
        shown.push_back(changed);
        if (m_control == nullptr) return;
        auto image = m_control->image();
        if (!image) return;
        m_screen.context().BitBlt(changed.left, changed.top, changed.right - changed.left,
                                  changed.bottom - changed.top, *image, changed.left, changed.top);
    }
    void setCursor(Cursor value) override { cursor = value; }
    void captureMouse() override { ++captures; }
    void requestSize(int width, int height) override {
        requestedWidth = width;
        requestedHeight = height;
        if (m_control != nullptr && grantsSizes) resize(width, height, m_control->scale());
    }
    int popUp(std::span<const MenuLine> lines, int x, int y) override {
        Menu menu{{}, {}, x, y};
        for (const MenuLine& line : lines) {
            menu.captions.emplace_back(line.caption);
            menu.enabled.push_back(line.isEnabled);
        }
        menus.push_back(std::move(menu));
        return chosenLine;
    }
    ScrollBar& verticalScrollBar() override { return scrollBar; }
    EditBox& editBox() override { return edit; }
    void runPendingEvents(int longestWait) override {
        waitAsked = longestWait;
        now += millisecondsPerLook;
        const auto events = pendingEvents;  // they may end this host
        if (events) events();
    }
    std::uint32_t GetTickCount() const override { return now; }
    bool isWindowMaximized() const override { return isMaximized; }
    void startWindowSizing() override { ++sizings; }
    void accessibleChanged() override { ++accessibleChanges; }

    // What the control asked for.
    std::vector<Rect> shown;
    Cursor cursor = Cursor::Default;
    int captures = 0;
    int requestedWidth = 0;
    int requestedHeight = 0;
    std::vector<Menu> menus;
    int sizings = 0;
    int waitAsked = 0;
    int accessibleChanges = 0;

    // What it is answered.
    bool grantsSizes = true;
    int chosenLine = -1;
    bool isMaximized = false;
    FakeScrollBar scrollBar;
    FakeEditBox edit;
    /// Called at each look for pending events; the clock moves on before.
    std::function<void()> pendingEvents;
    std::uint32_t millisecondsPerLook = 1;
    std::uint32_t now = 0;

 private:
    Control* m_control = nullptr;
    PictureGrid m_screen{0, 0};
};

}  // namespace mobrel::test
