// SPDX-License-Identifier: MIT
// What a self-drawn control needs around it. A window gives it; tests stand in for one.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/base/Event.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel {

enum class Cursor { Default, HandOver, HandCatch, PickColor, SizeNorthWestSouthEast };

/// A part of a window that a control can be connected with.
class HostPart {
 public:
    virtual ~HostPart() = default;
};

/// The platform's scroll bar, whose range has 16 bits. Setting the value raises Change at once when it
/// differs, as a user's step or drag does.
class ScrollBar : public HostPart {
 public:
    virtual std::int16_t Min() const = 0;
    virtual std::int16_t Max() const = 0;
    virtual std::int16_t SmallChange() const = 0;
    virtual std::int16_t LargeChange() const = 0;
    virtual std::int16_t Value() const = 0;
    virtual void setMin(std::int16_t value) = 0;
    virtual void setMax(std::int16_t value) = 0;
    virtual void setSmallChange(std::int16_t value) = 0;
    virtual void setLargeChange(std::int16_t value) = 0;
    virtual void setValue(std::int16_t value) = 0;

    virtual bool Visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    /// The thickness that the user's style gives it, in device pixels.
    virtual int thickness() const = 0;
    /// Where it stands in the control, in device pixels.
    virtual void place(const Rect& rect) = 0;

    Event<> Change;
};

/// An editor for one text, over the control.
class EditBox : public HostPart {
 public:
    struct Look {
        Rect place;
        TextFont font;
        Color background = 0;
        Color text = 0;
        unsigned alignment = DT_LEFT;
        bool wrapsLines = false;
    };

    /// Shows it with all of the text selected, and gives it the keyboard.
    virtual void open(std::string_view text, const Look& look) = 0;
    virtual void close() = 0;
    virtual std::string Text() const = 0;

    /// Enter and Escape.
    Event<std::int16_t> KeyDown;
    Event<> LostFocus;
};

/// A line of a pop-up menu; "-" is a separator.
struct MenuLine {
    std::string_view caption;
    bool isEnabled = true;
};

class ControlHost {
 public:
    virtual ~ControlHost() = default;

    /// Brings a changed rectangle of the control's image to the screen at once, also inside long work.
    virtual void show(const Rect& changed) = 0;

    virtual void setCursor(Cursor cursor) = 0;
    /// Sends all pointer input here until the buttons are up.
    virtual void captureMouse() = 0;
    /// Asks for an outer size in device pixels, as a control does that never shows a part of a row. The
    /// control hears of the size it gets by setSize, before this returns.
    virtual void requestSize(int width, int height) = 0;

    /// Shows a menu at a place of the control and waits. The index of the chosen line, or -1.
    virtual int popUp(std::span<const MenuLine> lines, int x, int y) = 0;
    /// The one vertical scroll bar at the control's right, and the one editor; both hidden at first.
    virtual ScrollBar& verticalScrollBar() = 0;
    virtual EditBox& editBox() = 0;

    /// Lets waiting input come in, as a loop inside a handler needs it. While there is none, it waits up to
    /// so many milliseconds for some. The control and its host may be gone afterwards.
    virtual void runPendingEvents(int longestWait) = 0;
    /// Milliseconds that only go up; wraps at 32 bits.
    virtual std::uint32_t GetTickCount() const = 0;

    /// Whether the window around is maximised; and the start of its sizing by the lower right corner.
    virtual bool isWindowMaximized() const = 0;
    virtual void startWindowSizing() = 0;

    /// Tells assistive programs that value, selection or content have changed.
    virtual void accessibleChanged() = 0;
};

}  // namespace mobrel
