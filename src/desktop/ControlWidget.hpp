// SPDX-License-Identifier: MIT
// The widget that shows a self-drawn control.
#pragma once

#include <QWidget>

#include "desktop/WidgetHost.hpp"
#include "platform/control/Control.hpp"

namespace mobrel {

/// One pixel of the control's image is one device pixel, at every display scale: at a broken one the control
/// gets the whole device pixels inside the widget, and its picture begins at the nearest. The control must
/// outlive the widget. Its size hint is the size that the control asked for.
///
/// Every event of Qt that goes on into the control is a boundary for errors: see enterCore.
class ControlWidget : public QWidget {
 public:
    explicit ControlWidget(Control& control, QWidget* parent = nullptr);

    Control& control() const { return m_control; }

    QSize sizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    PointerInput pointer(const QMouseEvent& event);
    template <typename Tell>
    void tellButton(QMouseEvent& event, Tell tell);
    void followSize();

    Control& m_control;
    WidgetHost m_host;
    bool m_knowsFocus = false;  // the control has been told that it has the keyboard
    PointerInput m_last;        // with the sum of the buttons that are down here
};

}  // namespace mobrel
