// SPDX-License-Identifier: MIT
// Small widgets of dialogs.
#pragma once

#include <QPoint>
#include <QSize>
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

/// What the window manager's frame around a window is likely to take: it is not known before the window is
/// shown.
QSize likelyFrame(const QWidget& window);

/// The place nearest to the given one, wherever that is, at which all of a window of that size, frame
/// included, is on a screen.
QPoint reachablePlace(const QPointF& place, QSize outerSize);

}  // namespace mobrel
