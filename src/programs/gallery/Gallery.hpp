// SPDX-License-Identifier: MIT
// The window of the gallery.
#pragma once

#include <QWidget>

namespace mobrel::gallery {

/// Every control in every state under headings, which scroll, and the status bar below. Its end ends the
/// program.
class Gallery : public QWidget {
 public:
    Gallery();

 protected:
    void closeEvent(QCloseEvent* event) override;
};

}  // namespace mobrel::gallery
