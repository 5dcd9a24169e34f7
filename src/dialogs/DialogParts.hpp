// SPDX-License-Identifier: MIT
// Small widgets of dialogs.
#pragma once

#include <QPoint>
#include <QWidget>

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

}  // namespace mobrel
