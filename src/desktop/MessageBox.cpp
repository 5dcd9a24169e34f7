// SPDX-License-Identifier: MIT
#include "desktop/MessageBox.hpp"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "desktop/QtValues.hpp"
#include "desktop/RunningEvents.hpp"
#include "platform/base/Lookup.hpp"

namespace mobrel {

namespace {

constexpr std::pair<MessageIcon, QMessageBox::Icon> kIcons[] = {
    {MessageIcon::Exclamation, QMessageBox::Warning},
    {MessageIcon::Question, QMessageBox::Question},
    {MessageIcon::Critical, QMessageBox::Critical},
};

constexpr std::pair<int, MessageAnswer> kAnswers[] = {
    {QMessageBox::Ok, MessageAnswer::Ok},
    {QMessageBox::Yes, MessageAnswer::Yes},
    {QMessageBox::No, MessageAnswer::No},
};

QMessageBox::StandardButtons qtButtons(MessageButtons buttons) {
    if (buttons == MessageButtons::Ok) return QMessageBox::Ok;
    return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
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
    box.setIcon(valueIn(kIcons, icon, QMessageBox::NoIcon));
    box.setStandardButtons(qtButtons(buttons));
    box.setDefaultButton(buttons == MessageButtons::Ok ? QMessageBox::Ok : QMessageBox::Yes);
    const ArrowPointer arrow;
    const RunningEvents running;
    return valueIn(kAnswers, box.exec(), MessageAnswer::Cancel);
}

}  // namespace mobrel
