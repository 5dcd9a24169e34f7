// SPDX-License-Identifier: MIT
#include <cstdio>

#include "platform/screen/ClipboardHolder.hpp"
#include "platform/screen/Desktop.hpp"

namespace mobrel {

namespace {

void tell(std::string_view text) {
    std::fprintf(stderr, "mobrel: %.*s\n", static_cast<int>(text.size()), text.data());
}

class ConsoleWindows final : public Windows {
 public:
    MessageAnswer message(std::string_view text, MessageIcon, MessageButtons buttons) override {
        tell(text);
        return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Yes;
    }

    bool showFilter(fMain&, std::optional<int>) override {
        return refuse("this start needs a dialog (Filter in config.ini)");
    }
    bool showTexturize(fMain&) override { return refuse("choosing a texture needs a dialog"); }
    bool showResize(fMain&) override { return refuse("resizing needs a dialog"); }
    bool showOrientation(fMain&) override { return refuse("turning the picture needs a dialog"); }
    bool showPrint(fMain&) override { return refuse("printing needs a dialog"); }
    bool showProperties(fMain&) override { return refuse("the properties need a dialog"); }
    bool showAbout(fMain&) override { return refuse("the about box needs a window"); }
    std::optional<FileAnswer> askForFile(fMain&, const FileQuestion& question) override {
        refuse("\"" + question.title + "\" needs a dialog");
        return std::nullopt;
    }

    void setHourglass(bool) override {}  // there is no pointer

 private:
    static bool refuse(const std::string& reason) {
        tell(reason + ", and there is no display to show it on");
        return false;
    }
};

class HeldClipboard final : public Clipboard {
 public:
    void copyPicture(const PictureView& picture) override { holdPictureOnClipboard(picture); }
};

class NoPendingEvents final : public PendingEvents {
 public:
    void run() override {}  // none can wait
};

}  // namespace

Desktop consoleDesktop() {
    static ConsoleWindows windows;
    static HeldClipboard clipboard;
    static NoPendingEvents pendingEvents;
    return {&windows, &clipboard, &pendingEvents};
}

}  // namespace mobrel
