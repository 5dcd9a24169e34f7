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

void showFocused(QWidget& widget, Control& control) {
    // Once the window stands and its own keyboard has gone where it goes.
    QTimer::singleShot(200, &widget, [&control] { control.focusChanged(true); });
}

QGridLayout* gridIn(QWidget* section) {
    auto* const grid = new QGridLayout(section);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(12);
    return grid;
}

}  // namespace mobrel::gallery
