// SPDX-License-Identifier: MIT
#include "desktop/ControlWidget.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <utility>

#include "desktop/Boundary.hpp"
#include "desktop/InputValues.hpp"

namespace mobrel {

namespace {

bool takesKeys(AccessibleRole role) {
    return role != AccessibleRole::ProgressBar && role != AccessibleRole::StatusBar;
}

/// From here on the painter counts device pixels, from the whole one that is nearest to the widget's corner.
void countDevicePixels(QPainter& painter, double scale) {
    painter.scale(1 / scale, 1 / scale);
    const QTransform place = painter.deviceTransform();
    painter.translate(qRound(place.dx()) - place.dx(), qRound(place.dy()) - place.dy());
}

/// A menu over the control leaves it the keyboard, as far as the control knows.
bool isOfMenu(const QFocusEvent& event) {
    return event.reason() == Qt::PopupFocusReason || QApplication::activePopupWidget() != nullptr;
}

}  // namespace

ControlWidget::ControlWidget(Control& control, QWidget* parent)
    : QWidget(parent), m_control(control), m_host(*this, control) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(takesKeys(control.accessibleRole()) ? Qt::StrongFocus : Qt::NoFocus);
}

QSize ControlWidget::sizeHint() const {
    return m_host.askedSize();
}

void ControlWidget::followSize() {
    enterCore([this] { m_host.followWidgetSize(); });
}

bool ControlWidget::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::ScreenChangeInternal:
            followSize();
            break;
        case QEvent::PaletteChange:
        case QEvent::FontChange:
        case QEvent::StyleChange:
            enterCore([this] { m_control.appearanceChanged(); });
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

void ControlWidget::paintEvent(QPaintEvent* /*event*/) {
    const double scale = devicePixelRatioF();
    QPainter painter(this);
    const std::optional<DeviceContext> picture = m_control.image();
    const QRect all(0, 0, picture ? picture->width() : 0, picture ? picture->height() : 0);
    // A line that the picture leaves over at a broken scale, or all of a picture that is not there, gets the
    // window's colour.
    if (all.size() != QSizeF(size()) * scale)
        painter.fillRect(rect().adjusted(-1, -1, 1, 1), palette().window());
    if (!picture) return;
    const QImage image(picture->line(0), all.width(), all.height(), all.width() * 4, QImage::Format_RGB32);
    countDevicePixels(painter, scale);
    painter.drawImage(all, image);
}

void ControlWidget::resizeEvent(QResizeEvent* /*event*/) {
    followSize();
}

/// Nobody will tell of the release of a button over a window that is gone.
void ControlWidget::hideEvent(QHideEvent* /*event*/) {
    for (const std::int16_t button : {MouseButton::kLeft, MouseButton::kRight, MouseButton::kMiddle}) {
        if ((m_last.button & button) == 0) continue;
        m_last.button = static_cast<std::int16_t>(m_last.button & ~button);
        enterCore([&] { m_control.pointerReleased({button, m_last.shift, m_last.x, m_last.y}); });
    }
}

PointerInput ControlWidget::pointer(const QMouseEvent& event) {
    const PointerInput input = pointerInput(event, devicePixelRatioF());
    m_last = {mouseButtons(event.buttons()), input.shift, input.x, input.y};
    return input;
}

/// Of a button that the platform has a number for; others are the window's.
template <typename Tell>
void ControlWidget::tellButton(QMouseEvent& event, Tell tell) {
    const PointerInput input = pointer(event);
    if (input.button == MouseButton::kNone) return event.ignore();
    enterCore([&] { tell(input); });
}

void ControlWidget::mousePressEvent(QMouseEvent* event) {
    tellButton(*event, [this](const PointerInput& input) { m_control.pointerPressed(input); });
}

void ControlWidget::mouseMoveEvent(QMouseEvent* event) {
    const PointerInput input = pointer(*event);
    enterCore([&] { m_control.pointerMoved(input); });
}

void ControlWidget::mouseReleaseEvent(QMouseEvent* event) {
    tellButton(*event, [this](const PointerInput& input) { m_control.pointerReleased(input); });
}

void ControlWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    tellButton(*event, [this](const PointerInput& input) { m_control.pointerDoubleClicked(input); });
}

void ControlWidget::leaveEvent(QEvent* /*event*/) {
    enterCore([this] { m_control.pointerLeft(); });
}

void ControlWidget::wheelEvent(QWheelEvent* event) {
    const WheelInput input = wheelInput(*event, devicePixelRatioF());
    enterCore([&] { m_control.wheelTurned(input); });
}

void ControlWidget::keyPressEvent(QKeyEvent* event) {
    const KeyInput input = keyInput(*event);
    const auto characters = event->text().toUcs4();
    event->ignore();
    const QPointer<ControlWidget> self(this);  // a handler may close the window
    enterCore([&] {
        if (input.keyCode != 0 && m_control.keyPressed(input)) event->accept();
        for (const uint character : characters) {
            if (self) m_control.keyTyped(character);
        }
    });
}

void ControlWidget::keyReleaseEvent(QKeyEvent* event) {
    event->ignore();
    const KeyInput input = keyInput(*event);
    if (input.keyCode == 0 || event->isAutoRepeat()) return;
    enterCore([&] { m_control.keyReleased(input); });
}

void ControlWidget::focusInEvent(QFocusEvent* /*event*/) {
    if (!std::exchange(m_knowsFocus, true)) enterCore([this] { m_control.focusChanged(true); });
}

void ControlWidget::focusOutEvent(QFocusEvent* event) {
    if (isOfMenu(*event)) return;
    if (std::exchange(m_knowsFocus, false)) enterCore([this] { m_control.focusChanged(false); });
}

}  // namespace mobrel
