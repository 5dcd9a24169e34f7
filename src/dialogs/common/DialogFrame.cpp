// SPDX-License-Identifier: MIT
#include "dialogs/common/DialogFrame.hpp"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "desktop/Boundary.hpp"
#include "dialogs/common/FormParts.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

namespace {

constexpr double kTwipsPerPixel = 15;

/// What the window manager's frame around a window is likely to take: it is not known before the window is
/// shown.
QSize likelyFrame(const QWidget& window) {
    const QStyle& style = *window.style();
    const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    const int title = style.pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    return {2 * border, title + 2 * border};
}

QPoint reachablePlace(const QPointF& place, QSize outerSize) {
    const auto inside = [](double value, int least, int greatest) {
        return qRound(std::clamp<double>(value, least, std::max(least, greatest)));
    };
    const QScreen* const primary = QGuiApplication::primaryScreen();
    const QRect all = primary->virtualGeometry();
    const QScreen* const nearest = QGuiApplication::screenAt(
        {inside(place.x(), all.left(), all.right()), inside(place.y(), all.top(), all.bottom())});
    const QRect room = (nearest != nullptr ? nearest : primary)->availableGeometry();
    return {inside(place.x(), room.left(), room.right() + 1 - outerSize.width()),
            inside(place.y(), room.top(), room.bottom() + 1 - outerSize.height())};
}

}  // namespace

DialogFrame::DialogFrame(fMain& main, QWidget* parent) : QDialog(parent), m_main(main) {}

void DialogFrame::done(int result) {
    enterCore([this] {
        if (!std::exchange(m_isUnloaded, true)) unload();
    });
    QDialog::done(result);
}

QSize DialogFrame::roomOnScreen() const {
    return QGuiApplication::primaryScreen()->availableSize() - likelyFrame(*this);
}

void DialogFrame::resizeToDesign(QSize designed) {
    resize((QSizeF(designed) * designUnit(*this)).toSize().boundedTo(roomOnScreen()));
}

WindowCorner DialogFrame::centredCorner() const {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint place = screen.center() - QRect(QPoint(), size() + likelyFrame(*this)).center();
    return {.Top = static_cast<float>(place.y() * kTwipsPerPixel),
            .Left = static_cast<float>(place.x() * kTwipsPerPixel)};
}

void DialogFrame::moveToReachable(const WindowCorner& corner) {
    move(reachablePlace(QPointF(corner.Left, corner.Top) / kTwipsPerPixel, size() + likelyFrame(*this)));
}

void DialogFrame::showEvent(QShowEvent* event) {
    m_main.setHourglass(false);
    QDialog::showEvent(event);
}

}  // namespace mobrel
