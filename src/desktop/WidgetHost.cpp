// SPDX-License-Identifier: MIT
#include "desktop/WidgetHost.hpp"

#include <QAbstractEventDispatcher>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <cmath>
#include <utility>

#include "desktop/ControlAccessible.hpp"
#include "desktop/Cursors.hpp"
#include "desktop/QtValues.hpp"
#include "desktop/RunningEvents.hpp"

namespace mobrel {

namespace {

/// The device pixels that a widget has at least; at a broken scale its place can give it one more.
int wholePixels(int length, double scale) {
    constexpr double kRoundingError = 1e-6;
    return static_cast<int>(std::floor(length * scale + kRoundingError));
}

/// The length in Qt's pixels for one in device pixels: the present one where that gives it already.
int lengthFor(int devicePixels, int present, double scale) {
    if (wholePixels(present, scale) == devicePixels) return present;
    return static_cast<int>(std::ceil(devicePixels / scale));
}

void addLine(QMenu& menu, const MenuLine& line) {
    if (line.caption == "-") {
        menu.addSeparator();
    } else {
        menu.addAction(qtText(line.caption))->setEnabled(line.isEnabled);
    }
}

}  // namespace

WidgetHost::WidgetHost(QWidget& widget, Control& control) : m_widget(widget), m_control(control) {
    m_control.setHost(this);
    followWidgetSize();
}

WidgetHost::~WidgetHost() {
    m_control.setHost(nullptr);
}

void WidgetHost::followWidgetSize() {
    if (m_isGranting) return;
    const double scale = m_widget.devicePixelRatioF();
    const int width = wholePixels(m_widget.width(), scale);
    const int height = wholePixels(m_widget.height(), scale);
    const bool hasIt =
        m_control.width() == width && m_control.height() == height && m_control.scale() == scale;
    if (hasIt) return;
    const QPointer<QWidget> widget(&m_widget);  // a handler may destroy it
    const bool isInside = std::exchange(m_isFollowing, true);
    m_control.setSize(width, height, scale);
    if (widget) m_isFollowing = isInside;
}

void WidgetHost::show(const Rect& changed) {
    const double scale = m_widget.devicePixelRatioF();
    // At a broken scale the widget can begin inside a device pixel, and its picture at the next whole one.
    const int margin = scale == std::floor(scale) ? 0 : 1;
    const QRect rect = coveringRect(changed, scale).adjusted(-margin, -margin, margin, margin);
    // Qt paints a window whose size changes when all in it have their places. A paint before that would be
    // taken for this one, and what moves afterwards would leave its picture behind.
    if (m_isFollowing) {
        m_widget.update(rect);
    } else {
        m_widget.repaint(rect);
    }
}

void WidgetHost::setCursor(Cursor cursor) {
    if (cursor == Cursor::Default) {
        m_widget.unsetCursor();
    } else {
        m_widget.setCursor(qtCursor(cursor, m_widget.devicePixelRatioF()));
    }
}

void WidgetHost::captureMouse() {}  // Qt does so from a press on

/// The size is given to the pixel, though at some scales the widget must be a little larger then.
void WidgetHost::requestSize(int width, int height) {
    const double scale = m_widget.devicePixelRatioF();
    const QSize size(lengthFor(width, m_widget.width(), scale), lengthFor(height, m_widget.height(), scale));
    const bool isNew = size != m_askedSize;
    m_askedSize = size;
    m_isGranting = true;
    m_widget.resize(size);
    m_isGranting = false;
    if (isNew) m_widget.updateGeometry();
    m_control.setSize(width, height, scale);
    m_widget.update();
}

int WidgetHost::popUp(std::span<const MenuLine> lines, int x, int y) {
    QMenu menu;
    for (const MenuLine& line : lines) addLine(menu, line);
    const QPoint place = (QPointF(x, y) / m_widget.devicePixelRatioF()).toPoint();
    const RunningEvents running;
    QAction* const chosen = menu.exec(m_widget.mapToGlobal(place));
    return static_cast<int>(menu.actions().indexOf(chosen));
}

ScrollBar& WidgetHost::verticalScrollBar() {
    if (!m_scrollBar) m_scrollBar = std::make_unique<PlatformScrollBar>(m_widget);
    return *m_scrollBar;
}

EditBox& WidgetHost::editBox() {
    if (!m_editor) m_editor = std::make_unique<OverlayEditor>(m_widget);
    return *m_editor;
}

void WidgetHost::runPendingEvents(int longestWait) {
    const RunningEvents running;
    QTimer alarm;  // an event of its own, which ends the wait
    alarm.setSingleShot(true);
    alarm.setTimerType(Qt::PreciseTimer);
    alarm.start(longestWait);
    QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents |
                                                        QEventLoop::WaitForMoreEvents);
}

std::uint32_t WidgetHost::GetTickCount() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

bool WidgetHost::isWindowMaximized() const {
    return m_widget.window()->isMaximized();
}

void WidgetHost::startWindowSizing() {
    QWindow* const window = m_widget.window()->windowHandle();
    if (window != nullptr) window->startSystemResize(Qt::BottomEdge | Qt::RightEdge);
}

void WidgetHost::accessibleChanged() {
    tellAccessibleChange(m_widget, m_control);
}

}  // namespace mobrel
