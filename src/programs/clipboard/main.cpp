// SPDX-License-Identifier: MIT
// Holds a picture on the clipboard after the program that copied it has ended.
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <utility>

#include "platform/screen/ClipboardHolder.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/Process.hpp"
#include "programs/clipboard/Display.hpp"
#include "programs/clipboard/HeldPicture.hpp"
#include "programs/clipboard/PictureForms.hpp"
#include "programs/clipboard/Selection.hpp"

namespace mobrel::clipboard {

namespace {

constexpr unsigned kMostSecondsToStart = 10;

// Before anything is connected or made that the two could share. The caller waits for the process that it
// started, which ends at once, and keeps no child that it would have to wait for later.
bool isTheOneThatStays() {
    const pid_t child = ::fork();
    if (child < 0) throwErrno(errno);
    return child == 0;
}

// A caller that has given up has said so to the user, who may have copied something else since.
bool callerWaits(const FileDescriptor& caller) {
    pollfd pipe = {caller.get(), 0, 0};
    return ::poll(&pipe, 1, 0) == 0;
}

void answer(FileDescriptor& caller, HolderAnswer answer) {
    const char byte = static_cast<char>(answer);
    [[maybe_unused]] const ssize_t written = ::write(caller.get(), &byte, 1);  // it may have gone
    caller.reset();
}

int hold(const PictureView& picture, FileDescriptor caller) {
    ::alarm(kMostSecondsToStart);  // for a server that takes the connection and never answers
    const Display display;
    if (!display.isConnected()) {
        answer(caller, HolderAnswer::NoDisplay);
        return 0;
    }
    // Not before: the way to the server's key may be told relative to the caller's folder.
    if (::chdir("/") != 0) return 1;
    PictureForms forms(picture);
    Selection selection(display, forms);
    if (!callerWaits(caller) || !selection.take()) return 1;
    answer(caller, HolderAnswer::HasClipboard);
    ::alarm(0);
    selection.serve();
    return 0;
}

int run() {
    turnWriteSignalsIntoErrors();
    std::signal(SIGHUP, SIG_IGN);
    ::umask(077);
    FileDescriptor file(kHeldPictureDescriptor);
    const HeldPicture picture(file.get());
    file.reset();
    FileDescriptor caller(kHolderAnswerDescriptor);
    return isTheOneThatStays() ? hold(picture.view(), std::move(caller)) : 0;
}

}  // namespace

}  // namespace mobrel::clipboard

int main() {
    try {
        return mobrel::clipboard::run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mobrel-clipboard: no picture to hold; mobrel starts this program (%s)\n",
                     error.what());
        return 1;
    }
}
