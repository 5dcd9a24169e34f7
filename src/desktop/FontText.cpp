// SPDX-License-Identifier: MIT
#include "desktop/FontText.hpp"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <cstddef>

#include "desktop/QtValues.hpp"

namespace mobrel {

namespace {

int qtTextFlags(unsigned flags) {
    const bool isOneLine = (flags & DT_SINGLELINE) != 0;
    int result = Qt::AlignLeft;
    if ((flags & DT_CENTER) != 0) result = Qt::AlignHCenter;
    if ((flags & DT_RIGHT) != 0) result = Qt::AlignRight;
    // The platform centres one line only.
    result |= isOneLine && (flags & DT_VCENTER) != 0 ? Qt::AlignVCenter : Qt::AlignTop;
    if (isOneLine) result |= Qt::TextSingleLine;
    if ((flags & DT_WORDBREAK) != 0) result |= Qt::TextWordWrap;
    return result;
}

/// Over the target's own memory. Qt knows top-down rows alone: one that is bottom-up lies upside down.
QImage imageOver(DeviceContext& target) {
    const std::ptrdiff_t stride =
        target.height() > 1 ? target.line(1) - target.line(0) : std::ptrdiff_t{target.width()} * 4;
    uchar* const first = stride > 0 ? target.line(0) : target.line(target.height() - 1);
    return QImage(first, target.width(), target.height(), stride > 0 ? stride : -stride,
                  QImage::Format_RGB32);
}

bool isBottomUp(const DeviceContext& target) {
    return target.height() > 1 && target.line(1) < target.line(0);
}

}  // namespace

QFont qtFont(const TextFont& font, double scale) {
    QFont result = QApplication::font();
    if (!font.family.empty()) result.setFamily(qtText(font.family));
    if (font.bold) result.setBold(true);
    if (font.points > 0) {
        result.setPointSizeF(font.points * scale);
    } else if (result.pointSizeF() > 0) {
        result.setPointSizeF(result.pointSizeF() * scale);
    } else {  // the user's size is one in pixels
        result.setPixelSize(qRound(result.pixelSize() * scale));
    }
    return result;
}

int FontText::lineHeight(const TextFont& font, double scale) const {
    return QFontMetrics(qtFont(font, scale)).height();
}

int FontText::textWidth(std::string_view text, const TextFont& font, double scale) const {
    return QFontMetrics(qtFont(font, scale)).horizontalAdvance(qtText(text));
}

void FontText::draw(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
                    double scale, Color color, unsigned flags) const {
    if (text.empty() || target.width() < 1 || target.height() < 1) return;
    const QRect place = qtRect(rect);
    if (place.isEmpty()) return;
    QImage image = imageOver(target);
    QPainter painter(&image);
    if (isBottomUp(target)) {
        painter.translate(0, target.height());
        painter.scale(1, -1);
    }
    painter.setClipRect(place);
    painter.setFont(qtFont(font, scale));
    painter.setPen(qtColor(color));
    painter.drawText(place, qtTextFlags(flags), qtText(text));
}

}  // namespace mobrel
