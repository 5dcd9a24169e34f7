// SPDX-License-Identifier: MIT
// What a widget gives the control that it shows.
#pragma once

#include <QWidget>
#include <memory>

#include "desktop/OverlayEditor.hpp"
#include "desktop/PlatformScrollBar.hpp"
#include "platform/control/Control.hpp"

namespace mobrel {

class WidgetHost final : public ControlHost {
 public:
    WidgetHost(QWidget& widget, Control& control);
    ~WidgetHost() override;
    WidgetHost(const WidgetHost&) = delete;
    WidgetHost& operator=(const WidgetHost&) = delete;

    /// Gives the control the widget's size in device pixels, if it has another.
    void followWidgetSize();
    /// What the control asked for last, in Qt's pixels; invalid when it never asked.
    QSize askedSize() const { return m_askedSize; }

    void show(const Rect& changed) override;
    void setCursor(Cursor cursor) override;
    void captureMouse() override;
    void requestSize(int width, int height) override;
    int popUp(std::span<const MenuLine> lines, int x, int y) override;
    ScrollBar& verticalScrollBar() override;
    EditBox& editBox() override;
    void runPendingEvents(int longestWait) override;
    std::uint32_t GetTickCount() const override;
    bool isWindowMaximized() const override;
    void startWindowSizing() override;
    void accessibleChanged() override;

 private:
    QWidget& m_widget;
    Control& m_control;
    QSize m_askedSize;
    bool m_isGranting = false;
    bool m_isFollowing = false;
    std::unique_ptr<PlatformScrollBar> m_scrollBar;
    std::unique_ptr<OverlayEditor> m_editor;
};

}  // namespace mobrel
