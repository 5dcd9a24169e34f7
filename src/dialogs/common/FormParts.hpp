// SPDX-License-Identifier: MIT
// What the forms of dialogs are made of.
#pragma once

#include <QAbstractButton>
#include <QFrame>
#include <QLabel>
#include <QPoint>
#include <QWidget>
#include <cstddef>

#include "desktop/Icons.hpp"

namespace mobrel {

/// An etched line across the form, in the system's colours of edges.
class EtchedLine : public QWidget {
 public:
    explicit EtchedLine(QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

/// An area by which the window is moved.
class MoveArea : public QWidget {
 public:
    explicit MoveArea(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

 private:
    QPoint m_grab;
};

/// How many of Qt's pixels a pixel of the designed dialog is: more than 1 for a font that is larger than the
/// designed one.
double designUnit(const QWidget& widget);

template <typename Widget>
Widget* named(const char* name, Widget* widget) {
    widget->setObjectName(name);
    return widget;
}

/// The name of one of several controls: "lblColor(1)".
QString indexed(const char* name, std::size_t index);

/// A sunken frame around a pane, which fills it.
QFrame* framed(QWidget* pane);

/// A button that shows one of our icons; its name is its tip, too.
template <typename Button>
Button* iconButton(const char* icon, const QString& name) {
    auto* const button = new Button;
    button->setIcon(drawnIcon(icon));
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

/// Its place stays empty while it is hidden, so that nothing around moves.
void keepPlace(QWidget& widget);

/// Room for its text in two lines. A height that depends on the width would not count in the least height of
/// the dialog, and its rows would overlap.
void keepTwoLines(QLabel& label);

}  // namespace mobrel
