// SPDX-License-Identifier: MIT
#include "desktop/Cursors.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <span>

namespace mobrel {

namespace {

/// A place on the grid of 24 by 24 that the pictures are designed on.
constexpr int kGrid = 24;

struct Finger {
    double left;
    double top;
    double bottom;
};

constexpr double kFingerWidth = 4;

QPainterPath fingers(std::span<const Finger> places) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const Finger& finger : places) {
        path.addRoundedRect(QRectF(finger.left, finger.top, kFingerWidth, finger.bottom - finger.top),
                            kFingerWidth / 2, kFingerWidth / 2);
    }
    return path;
}

QPainterPath openThumb() {
    QPainterPath path(QPointF(7.5, 18));
    path.cubicTo(5, 16, 3.5, 14, 2.4, 12.6);
    path.cubicTo(1.4, 11.2, 3.2, 9.8, 4.6, 11);
    path.lineTo(8, 14);
    path.closeSubpath();
    return path;
}

QPainterPath palm(double top) {
    QPainterPath path(QPointF(5, top));
    path.lineTo(21, top);
    path.lineTo(21, 15.5);
    path.cubicTo(21, 19.5, 18.5, 22, 14, 22);
    path.cubicTo(9.6, 22, 8, 19.5, 5, 16.5);
    path.closeSubpath();
    return path;
}

void paintShape(QPainter& painter, const QPainterPath& shape) {
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(shape);
    painter.fillPath(shape, Qt::white);
}

void paintKnuckleLines(QPainter& painter, double top, double bottom) {
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap));
    for (const double x : {9.5, 13.5, 17.5}) painter.drawLine(QPointF(x, top), QPointF(x, bottom));
}

void paintOpenHand(QPainter& painter) {
    constexpr Finger kFingers[] = {{5, 4, 14}, {9, 2, 14}, {13, 3, 14}, {17, 5, 14}};
    paintShape(painter, fingers(kFingers).united(palm(11)).united(openThumb()).simplified());
    paintKnuckleLines(painter, 6.5, 11);
}

void paintClosedHand(QPainter& painter) {
    constexpr Finger kFingers[] = {{5, 8, 14}, {9, 7, 14}, {13, 7, 14}, {17, 8, 14}};
    QPainterPath thumb;
    thumb.addRoundedRect(QRectF(3.6, 11, 5, 5.6), 2.2, 2.2);
    paintShape(painter, fingers(kFingers).united(palm(11)).united(thumb).simplified());
    paintKnuckleLines(painter, 9.5, 11.5);
}

void paintPicker(QPainter& painter) {
    // A pipette along the diagonal; its tip is the pixel that is picked.
    painter.translate(2, 22);
    painter.rotate(-45);
    QPainterPath glass(QPointF(0, 0));
    glass.lineTo(3, -1.5);
    glass.lineTo(14, -1.5);
    glass.lineTo(14, 1.5);
    glass.lineTo(3, 1.5);
    glass.closeSubpath();
    paintShape(painter, glass);
    QPainterPath bulb;
    bulb.addRect(QRectF(13, -3.6, 2.6, 7.2));
    bulb.addRoundedRect(QRectF(15.6, -2.4, 9, 4.8), 2.4, 2.4);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::black);
    painter.drawPath(bulb);
}

template <typename Paint>
QCursor drawnCursor(double scale, QPoint hotSpot, Paint&& paint) {
    QPixmap picture(qRound(kGrid * scale), qRound(kGrid * scale));
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    paint(painter);
    painter.end();
    picture.setDevicePixelRatio(scale);
    return QCursor(picture, hotSpot.x(), hotSpot.y());
}

}  // namespace

QCursor qtCursor(Cursor cursor, double scale) {
    switch (cursor) {
        case Cursor::Default:
            return Qt::ArrowCursor;
        case Cursor::HandOver:
            return drawnCursor(scale, {12, 12}, paintOpenHand);
        case Cursor::HandCatch:
            return drawnCursor(scale, {12, 12}, paintClosedHand);
        case Cursor::PickColor:
            return drawnCursor(scale, {2, 21}, paintPicker);
        case Cursor::SizeNorthWestSouthEast:
            return Qt::SizeFDiagCursor;
    }
    return Qt::ArrowCursor;
}

}  // namespace mobrel
