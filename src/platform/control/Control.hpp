// SPDX-License-Identifier: MIT
// A self-drawn control: its own top-down image, which it draws into at any time, and plain calls for what
// its user does. It knows no toolkit.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/control/ControlHost.hpp"
#include "platform/control/ControlInput.hpp"
#include "platform/drawing/PixelBuffer.hpp"

namespace mobrel {

/// What assistive programs are told, and what they may do.
enum class AccessibleRole { Graphic, List, ProgressBar, Slider, StatusBar };

struct AccessibleRange {
    std::int32_t least = 0;
    std::int32_t greatest = 0;
    std::int32_t step = 1;
    std::int32_t value = 0;
};

/// Without a host, and before it has a size, a control keeps its state and draws nothing.
class Control {
 public:
    Control() = default;
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// Connects it with the window around it; null lets go.
    void setHost(ControlHost* host);
    ControlHost* host() const noexcept { return m_host; }

    /// Its size in device pixels, and how many of them a design pixel has. Below 1 pixel it has no image.
    void setSize(int width, int height, double scale);
    int width() const noexcept { return m_width; }
    int height() const noexcept { return m_height; }
    double scale() const noexcept { return m_scale; }
    Rect bounds() const noexcept { return {0, 0, m_width, m_height}; }

    /// What it looks like now; nothing while it has no image.
    std::optional<DeviceContext> image();

    virtual void pointerPressed(const PointerInput& /*input*/) {}
    virtual void pointerMoved(const PointerInput& /*input*/) {}
    virtual void pointerReleased(const PointerInput& /*input*/) {}
    virtual void pointerDoubleClicked(const PointerInput& /*input*/) {}
    virtual void pointerLeft() {}
    virtual void wheelTurned(const WheelInput& /*input*/) {}
    /// True when the key is the control's own; others go on to the window.
    virtual bool keyPressed(const KeyInput& /*input*/) { return false; }
    virtual void keyReleased(const KeyInput& /*input*/) {}
    /// A character, as UTF-32.
    virtual void keyTyped(char32_t /*character*/) {}
    virtual void focusChanged(bool /*hasFocus*/) {}
    /// System colours or fonts have changed.
    virtual void appearanceChanged() {}

    virtual AccessibleRole accessibleRole() const = 0;
    virtual std::string accessibleValue() const { return {}; }
    virtual std::optional<AccessibleRange> accessibleRange() const { return std::nullopt; }
    virtual void setAccessibleValue(std::int32_t /*value*/) {}
    virtual int accessibleItemCount() const { return 0; }
    virtual std::string accessibleItemText(int /*item*/) const { return {}; }
    virtual bool isAccessibleItemSelected(int /*item*/) const { return false; }
    virtual void selectAccessibleItem(int /*item*/) {}
    virtual Rect accessibleItemRect(int /*item*/) const { return {}; }

 protected:
    /// Expires with the control, which a handler of its events may destroy.
    std::weak_ptr<const bool> life() const noexcept { return m_life; }

    /// Called after a host has been set or taken away.
    virtual void hostChanged() {}
    /// Called after a size or scale has been set, but for a size that the control asks for.
    virtual void sizeChanged() {}

    /// Asks the host for an outer size, unless it is the present one.
    void requestSize(int width, int height);
    /// Sends all pointer input here until the buttons are up.
    void captureMouse();
    /// Tells assistive programs that value, selection or content have changed.
    void tellAccessible();

    /// Brings a rectangle, cut to the image, to the screen.
    void showChange(const Rect& rect);
    void showAll() { showChange(bounds()); }

    /// Design pixels as device pixels.
    int scaled(double designPixels) const;
    /// The thickness of lines: whole design pixels, so that they stay sharp.
    int lineWidth() const { return m_scale < 2 ? 1 : static_cast<int>(m_scale); }

 private:
    ControlHost* m_host = nullptr;
    int m_width = 0;
    int m_height = 0;
    double m_scale = 1;
    bool m_isAskingForSize = false;
    PixelBuffer m_pixels;
    std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);
};

}  // namespace mobrel
