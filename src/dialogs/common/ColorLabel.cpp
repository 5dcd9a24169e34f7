// SPDX-License-Identifier: MIT
#include "dialogs/common/ColorLabel.hpp"

#include <QPainter>
#include <QStyleOptionFrame>

#include "desktop/QtValues.hpp"

namespace mobrel {

namespace {

constexpr int kMiddleGrey = 128;

}  // namespace

ColorLabel::ColorLabel(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setBackColor(0);
}

void ColorLabel::setBackColor(Color color) {
    m_color = color;
    setAccessibleDescription(qtColor(color).name());
    repaint();
}

QSize ColorLabel::sizeHint() const {
    const int line = fontMetrics().height();
    return {3 * line, line + 8};
}

void ColorLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = 1;
    frame.state |= QStyle::State_Sunken;
    painter.fillRect(rect().adjusted(1, 1, -1, -1),
                     isEnabled() ? qtColor(m_color) : palette().color(QPalette::Window));
    style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    if (!hasFocus()) return;
    // The style's own focus rectangle is lost on a colour like its highlight.
    painter.setPen(qGray(qtColor(m_color).rgb()) < kMiddleGrey ? Qt::white : Qt::black);
    painter.drawRect(rect().adjusted(2, 2, -3, -3));
}

}  // namespace mobrel
