// SPDX-License-Identifier: MIT
#include "desktop/OverlayEditor.hpp"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

#include "desktop/Boundary.hpp"
#include "desktop/FontText.hpp"
#include "desktop/QtValues.hpp"
#include "platform/control/ControlInput.hpp"

namespace mobrel {

namespace {

Qt::Alignment qtAlignment(unsigned flags) {
    if ((flags & DT_CENTER) != 0) return Qt::AlignHCenter;
    if ((flags & DT_RIGHT) != 0) return Qt::AlignRight;
    return Qt::AlignLeft;
}

QWidget* makeLine(const QString& text, const EditBox::Look& look, QWidget& parent) {
    auto* const line = new QLineEdit(text, &parent);
    line->setFrame(false);
    line->setTextMargins(0, 0, 0, 0);
    line->setAlignment(qtAlignment(look.alignment) | Qt::AlignVCenter);
    line->selectAll();
    return line;
}

QWidget* makeLines(const QString& text, const EditBox::Look& look, QWidget& parent) {
    auto* const lines = new QPlainTextEdit(text, &parent);
    lines->setFrameShape(QFrame::NoFrame);
    lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lines->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lines->setTabChangesFocus(true);
    lines->document()->setDocumentMargin(0);
    QTextOption option(qtAlignment(look.alignment));
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    lines->document()->setDefaultTextOption(option);
    lines->selectAll();
    return lines;
}

QPalette paletteOf(const EditBox::Look& look, QPalette palette) {
    palette.setColor(QPalette::Base, qtColor(look.background));
    palette.setColor(QPalette::Text, qtColor(look.text));
    return palette;
}

std::int16_t endingKey(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return KeyCode::kEnter;
    if (key == Qt::Key_Escape) return KeyCode::kEscape;
    return 0;
}

bool isLossInsideWindow(Qt::FocusReason reason) {
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

}  // namespace

void OverlayEditor::open(std::string_view text, const Look& look) {
    close();
    m_editor =
        look.wrapsLines ? makeLines(qtText(text), look, m_parent) : makeLine(qtText(text), look, m_parent);
    m_editor->setFont(qtFont(look.font, 1));
    m_editor->setPalette(paletteOf(look, m_parent.palette()));
    m_editor->setGeometry(nearestRect(look.place, m_parent.devicePixelRatioF()));
    m_editor->setCursor(Qt::IBeamCursor);
    m_editor->setAccessibleName(m_parent.accessibleName());
    m_editor->installEventFilter(this);
    m_editor->show();
    m_editor->setFocus();
}

void OverlayEditor::close() {
    if (m_editor == nullptr) return;
    m_text = currentText();
    QWidget* const editor = m_editor;
    m_editor = nullptr;
    editor->removeEventFilter(this);
    const bool hadKeyboard = editor->hasFocus();
    if (hadKeyboard) m_parent.setFocus();
    editor->hide();
    editor->deleteLater();  // it may be in the middle of an event
    if (hadKeyboard) LostFocus.raise();
}

QString OverlayEditor::currentText() const {
    if (const auto* const line = qobject_cast<const QLineEdit*>(m_editor)) return line->text();
    if (const auto* const lines = qobject_cast<const QPlainTextEdit*>(m_editor)) return lines->toPlainText();
    return m_text;
}

std::string OverlayEditor::Text() const {
    return currentText().toStdString();
}

bool OverlayEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_editor) return false;
    switch (event->type()) {
        case QEvent::ShortcutOverride:  // no default button and no window takes these
            if (endingKey(static_cast<QKeyEvent*>(event)->key()) != 0) event->accept();
            return false;
        case QEvent::KeyPress:
            if (const std::int16_t key = endingKey(static_cast<QKeyEvent*>(event)->key()); key != 0) {
                enterCore([&] { KeyDown.raise(key); });
                return true;
            }
            [[fallthrough]];
        case QEvent::KeyRelease:  // what the editor has no use for is no key of the control under it
            watched->event(event);
            event->accept();
            return true;
        case QEvent::FocusOut:
            if (isLossInsideWindow(static_cast<QFocusEvent*>(event)->reason())) {
                enterCore([&] { LostFocus.raise(); });
            }
            return false;
        default:
            return false;
    }
}

}  // namespace mobrel
