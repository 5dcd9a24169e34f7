// SPDX-License-Identifier: MIT
// The about box.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

namespace mobrel {

class fAbout final : public QDialog {
 public:
    explicit fAbout(QWidget* owner = nullptr);

 private:
    QLabel lblApp;
    QLabel lblCredits;
    QPushButton cmdOK;
};

}  // namespace mobrel
