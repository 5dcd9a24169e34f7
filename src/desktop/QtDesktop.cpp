// SPDX-License-Identifier: MIT
#include "desktop/QtDesktop.hpp"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <cstdio>
#include <string>

#include "desktop/DialogRegistry.hpp"
#include "desktop/LostDisplay.hpp"
#include "desktop/MessageBox.hpp"
#include "desktop/PastedPicture.hpp"

namespace mobrel {

namespace {

class QtWindows final : public Windows {
 public:
    MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) override {
        return showMessage(text, icon, buttons);
    }

    bool showDialog(std::string_view name, int id) override {
        if (dialogRegistry(name, id)) return true;
        std::fprintf(stderr, "mobrel: the dialog %s is not part of this version\n",
                     std::string(name).c_str());
        return false;
    }

    void setHourglass(bool on) override {
        if (on == m_isHourglass) return;
        m_isHourglass = on;
        if (on) {
            QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        } else {
            QGuiApplication::restoreOverrideCursor();
        }
    }

 private:
    bool m_isHourglass = false;
};

class QtClipboard final : public Clipboard {
 public:
    // What is copied outlives the program, which Qt's own does not.
    void copyPicture(const PictureView& picture) override {
        consoleDesktop().clipboard->copyPicture(picture);
    }
    bool hasPicture() override {
        const QMimeData* const offered = QGuiApplication::clipboard()->mimeData();
        return offered != nullptr && mobrel::hasPicture(*offered);
    }
    std::unique_ptr<StdPicture> picture() override {
        const QMimeData* const offered = QGuiApplication::clipboard()->mimeData();
        return offered != nullptr ? pictureOf(*offered) : nullptr;
    }
};

class QtPendingEvents final : public PendingEvents {
 public:
    void run() override {
        const RunningEvents running;
        QCoreApplication::processEvents();
    }
};

}  // namespace

Desktop qtDesktop() {
    static QtWindows windows;
    static QtClipboard clipboard;
    static QtPendingEvents pendingEvents;
    return {&windows, &clipboard, &pendingEvents};
}

}  // namespace mobrel
