// SPDX-License-Identifier: MIT
// What all dialogs that work on the document have in common.
#pragma once

#include <QDialog>

#include "shell/mSettings.hpp"

namespace mobrel {

class fMain;

/// A dialog of a main window, with a place in twips. However it is closed, it is unloaded once.
class DialogFrame : public QDialog {
 public:
    /// Unloads the dialog, and ends it.
    void done(int result) override;

 protected:
    DialogFrame(fMain& main, QWidget* parent);

    fMain& main() const noexcept { return m_main; }
    bool isUnloaded() const noexcept { return m_isUnloaded; }

    /// What a dialog does when it is closed.
    virtual void unload() = 0;

    /// The largest size with which all of the window, frame included, is on the screen.
    QSize roomOnScreen() const;
    /// The size in design pixels, or what there is room for.
    void resizeToDesign(QSize designed);
    /// The place in the middle of the screen.
    WindowCorner centredCorner() const;
    /// The place nearest to the given one, wherever that is, at which all of the window is on a screen.
    void moveToReachable(const WindowCorner& corner);

    void showEvent(QShowEvent* event) override;

 private:
    fMain& m_main;
    bool m_isUnloaded = false;
};

}  // namespace mobrel
