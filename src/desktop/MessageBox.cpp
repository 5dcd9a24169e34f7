// SPDX-License-Identifier: MIT
#include "desktop/MessageBox.hpp"

#include <QApplication>
#include <QMessageBox>

#include "desktop/QtValues.hpp"
#include "desktop/RunningEvents.hpp"

namespace mobrel {

namespace {

QMessageBox::Icon qtIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons qtButtons(MessageButtons buttons) {
    if (buttons == MessageButtons::Ok) return QMessageBox::Ok;
    return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

MessageAnswer answerOf(int button) {
    switch (button) {
        case QMessageBox::Ok:
            return MessageAnswer::Ok;
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        default:
            return MessageAnswer::Cancel;
    }
}

/// An hourglass that a command has set does not stand over its question.
class ArrowPointer {
 public:
    ArrowPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowPointer() { QApplication::restoreOverrideCursor(); }
    ArrowPointer(const ArrowPointer&) = delete;
    ArrowPointer& operator=(const ArrowPointer&) = delete;
};

}  // namespace

MessageAnswer showMessage(std::string_view text, MessageIcon icon, MessageButtons buttons) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QApplication::applicationDisplayName());
    box.setTextFormat(Qt::PlainText);
    box.setText(qtText(text));
    box.setIcon(qtIcon(icon));
    box.setStandardButtons(qtButtons(buttons));
    box.setDefaultButton(buttons == MessageButtons::Ok ? QMessageBox::Ok : QMessageBox::Yes);
    const ArrowPointer arrow;
    const RunningEvents running;
    return answerOf(box.exec());
}

}  // namespace mobrel
