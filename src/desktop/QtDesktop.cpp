// SPDX-License-Identifier: MIT
#include "desktop/QtDesktop.hpp"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <cstdio>
#include <string>

#include "desktop/Boundary.hpp"
#include "desktop/DialogRegistry.hpp"
#include "desktop/MessageBox.hpp"
#include "desktop/PastedPicture.hpp"
#include "desktop/RunningEvents.hpp"

namespace mobrel {

namespace {

class QtWindows final : public Windows {
 public:
    MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) override {
        return showMessage(text, icon, buttons);
    }

    bool showFilter(fMain& main, std::optional<int> id) override {
        return show("a filter dialog", dialogRegistry().filter, main, id);
    }
    bool showTexturize(fMain& main) override {
        return show("a texture dialog", dialogRegistry().texturize, main);
    }
    bool showResize(fMain& main) override {
        return show("a dialog to resize", dialogRegistry().resize, main);
    }
    bool showOrientation(fMain& main) override {
        return show("a dialog to turn the picture", dialogRegistry().orientation, main);
    }
    bool showPrint(fMain& main) override { return show("a dialog to print", dialogRegistry().print, main); }
    bool showProperties(fMain& main) override {
        return show("a dialog of properties", dialogRegistry().properties, main);
    }
    bool showAbout(fMain& main) override { return show("an about box", dialogRegistry().about, main); }
    std::optional<FileAnswer> askForFile(fMain& main, const FileQuestion& question) override {
        auto* const ask = dialogRegistry().file;
        if (ask == nullptr) {
            tellMissing("\"" + question.title + "\"");
            return std::nullopt;
        }
        std::optional<FileAnswer> answer;
        enterCore([&] { answer = ask(main, QApplication::activeWindow(), question); });
        return answer;
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
    /// An error in a dialog stops here, as it does in any handler of a window.
    template <typename Dialog, typename... Request>
    static bool show(const char* name, Dialog* dialog, fMain& main, Request... request) {
        if (dialog == nullptr) {
            tellMissing(name);
            return false;
        }
        enterCore([&] { dialog(main, QApplication::activeWindow(), request...); });
        return true;
    }

    static void tellMissing(const std::string& name) {
        std::fprintf(stderr, "mobrel: this version does not have %s\n", name.c_str());
    }

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
