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

    bool showDialog(std::string_view, int) override {
        tell("this start needs a dialog (Filter in config.ini), and there is no display to show it on");
        return false;
    }

    void setHourglass(bool) override {}  // there is no pointer
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
