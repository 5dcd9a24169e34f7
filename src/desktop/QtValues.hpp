// SPDX-License-Identifier: MIT
// Values of the core as Qt has them.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <QtMath>
#include <string_view>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// Of UTF-8.
inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline QColor qtColor(Color color) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                  static_cast<int>(color >> 16 & 0xFF));
}

inline Color coreColor(const QColor& color) {
    return static_cast<Color>(color.red()) | static_cast<Color>(color.green()) << 8 |
           static_cast<Color>(color.blue()) << 16;
}

inline QRect qtRect(const Rect& rect) {
    return QRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

/// The nearest place in Qt's pixels of a rectangle in device pixels, `scale` of which are one of Qt's.
inline QRect nearestRect(const Rect& rect, double scale) {
    const QPoint first(qRound(rect.left / scale), qRound(rect.top / scale));
    const QPoint end(qRound(rect.right / scale), qRound(rect.bottom / scale));
    return QRect(first, end - QPoint(1, 1));
}

/// The place in Qt's pixels that covers a rectangle in device pixels.
inline QRect coveringRect(const Rect& rect, double scale) {
    const QPoint first(qFloor(rect.left / scale), qFloor(rect.top / scale));
    const QPoint end(qCeil(rect.right / scale), qCeil(rect.bottom / scale));
    return QRect(first, end - QPoint(1, 1));
}

}  // namespace mobrel
