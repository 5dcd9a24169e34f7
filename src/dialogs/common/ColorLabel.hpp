// SPDX-License-Identifier: MIT
// A label that is a colour, and can be clicked.
#pragma once

#include <QAbstractButton>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

class ColorLabel : public QAbstractButton {
 public:
    explicit ColorLabel(QWidget* parent = nullptr);

    Color BackColor() const noexcept { return m_color; }
    /// Shown at once.
    void setBackColor(Color color);

    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    Color m_color = 0;
};

}  // namespace mobrel
