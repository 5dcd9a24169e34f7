// SPDX-License-Identifier: MIT
#include "dialogs/common/DialogParts.hpp"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "desktop/QtValues.hpp"
#include "platform/drawing/SystemColors.hpp"

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

QSize likelyFrame(const QWidget& window) {
    const QStyle& style = *window.style();
    const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int title = style.pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return {2 * border, title + 2 * border};
}

QPoint reachablePlace(const QPointF& place, QSize outerSize) {
    const auto inside = [](double value, int least, int greatest) {
        return qRound(std::clamp<double>(value, least, std::max(least, greatest)));
    };
    const QScreen* const primary = QGuiApplication::primaryScreen();
    const QRect all = primary->virtualGeometry();
    const QScreen* const nearest = QGuiApplication::screenAt(
        {inside(place.x(), all.left(), all.right()), inside(place.y(), all.top(), all.bottom())});
    const QRect room = (nearest != nullptr ? nearest : primary)->availableGeometry();
    return {inside(place.x(), room.left(), room.right() + 1 - outerSize.width()),
            inside(place.y(), room.top(), room.bottom() + 1 - outerSize.height())};
}

}  // namespace mobrel
