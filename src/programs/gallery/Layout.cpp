// SPDX-License-Identifier: MIT
#include "programs/gallery/Layout.hpp"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace mobrel::gallery {

QWidget* captioned(const QString& caption, QWidget* shown) {
    auto* const box = new QWidget;
    auto* const layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    layout->addWidget(new QLabel(caption));
    layout->addWidget(shown, 0, Qt::AlignTop | Qt::AlignLeft);
    layout->addStretch();
    shown->setAccessibleName(caption);
    return box;
}

void later(QWidget& widget, int milliseconds, const std::function<void()>& act) {
    auto* const timer = new QTimer(&widget);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &widget, act);
    timer->start(milliseconds);
}

void showFocused(QWidget& widget, Control& control) {
    // Once the window stands and its own keyboard has gone where it goes.
    later(widget, 200, [&control] { control.focusChanged(true); });
}

}  // namespace mobrel::gallery
