// SPDX-License-Identifier: MIT
#include "dialogs/common/FormParts.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>
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

QString indexed(const char* name, std::size_t index) {
    return QString("%1(%2)").arg(name).arg(index);
}

QFrame* framed(QWidget* pane) {
    auto* const frame = new QFrame;
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* const layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pane);
    return frame;
}

void keepPlace(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

void keepTwoLines(QLabel& label) {
    constexpr double kLongerHalf = 0.6;
    const QFontMetrics metrics = label.fontMetrics();
    label.setMinimumSize(qRound(kLongerHalf * metrics.horizontalAdvance(label.text())),
                         2 * metrics.lineSpacing());
    QSizePolicy policy = label.sizePolicy();
    policy.setHeightForWidth(false);
    label.setSizePolicy(policy);
}

}  // namespace mobrel
