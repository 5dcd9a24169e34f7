// SPDX-License-Identifier: MIT
// The editor for one text over a control.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include "platform/control/ControlHost.hpp"

class QWidget;

namespace mobrel {

/// A line of its own or, where lines wrap, several. A pop-up menu over it and another window in front do not
/// count as a loss of the keyboard.
class OverlayEditor final : public QObject, public EditBox {
 public:
    explicit OverlayEditor(QWidget& parent) : m_parent(parent) {}

    void open(std::string_view text, const Look& look) override;
    /// The keyboard goes back to the control when it was here.
    void close() override;
    /// What it holds, or held when it was closed.
    std::string Text() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QString currentText() const;

    QWidget& m_parent;
    QPointer<QWidget> m_editor;
    QString m_text;
};

}  // namespace mobrel
