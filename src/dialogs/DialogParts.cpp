// SPDX-License-Identifier: MIT
#include "dialogs/DialogParts.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/QtValues.hpp"
#include "platform/SystemColors.hpp"

namespace mobrel {

EtchedLine::EtchedLine(QWidget* parent) : QWidget(parent) {
    setFixedHeight(2);
}

void EtchedLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(0, 0, width(), 1, qtColor(GetSysColor(SystemColor::ButtonShadow)));
    painter.fillRect(0, 1, width(), 1, qtColor(GetSysColor(SystemColor::ButtonHighlight)));
}

void MoveArea::mousePressEvent(QMouseEvent* event) {
    m_grab = event->globalPosition().toPoint() - window()->pos();
}

// By hand: not every window manager moves a window of any kind exactly when it is asked to.
void MoveArea::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton)) window()->move(event->globalPosition().toPoint() - m_grab);
}

double designUnit(const QWidget& widget) {
    constexpr double kDesignedLine = 13;
    return std::max(1.0, widget.fontMetrics().height() / kDesignedLine);
}

}  // namespace mobrel
