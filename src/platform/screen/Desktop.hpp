// SPDX-License-Identifier: MIT
// Everything that needs a screen, as small interfaces; and what stands in for them without one.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/pictures/PictureView.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

class fMain;  // whom a dialog works for

enum class MessageIcon { Exclamation, Question, Critical };
enum class MessageButtons { Ok, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };

/// What a file dialog starts with.
struct FileQuestion {
    std::string title;
    std::string fileName;
    /// Names and patterns in turn, with "|" between: "Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif".
    std::string filter;
    bool isOpen = false;
};

/// What was chosen in a file dialog.
struct FileAnswer {
    std::string fileName;
    /// The pattern of the chosen type: "*.jpg".
    std::string fileExt;
    /// 0 to 100.
    int jpegQuality = 0;
};

/// Windows and messages. A call for a dialog shows it and waits until it is closed. It answers false, or
/// nothing, when the dialog cannot be shown, and then the reason has been told.
class Windows {
 public:
    virtual ~Windows() = default;

    /// Shows a message box and waits for the answer.
    virtual MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) = 0;

    /// The filter dialog with a filter by its number in the list; with none it takes nothing over from the
    /// document.
    virtual bool showFilter(fMain& main, std::optional<int> id) = 0;
    virtual bool showTexturize(fMain& main) = 0;
    virtual bool showResize(fMain& main) = 0;
    virtual bool showOrientation(fMain& main) = 0;
    virtual bool showPrint(fMain& main) = 0;
    virtual bool showProperties(fMain& main) = 0;
    virtual bool showAbout(fMain& main) = 0;
    /// The file dialog with a preview. Nothing on cancel as well.
    virtual std::optional<FileAnswer> askForFile(fMain& main, const FileQuestion& question) = 0;

    /// The mouse pointer of the screen: an hourglass, or back to normal.
    virtual void setHourglass(bool on) = 0;
};

/// The clipboard of the screen.
class Clipboard {
 public:
    virtual ~Clipboard() = default;

    /// Puts a copy of the picture there, in place of what was there; it outlives the program. Without a
    /// display nothing happens. What prevents it otherwise is told; it is no error.
    virtual void copyPicture(const PictureView& picture) = 0;

    /// Whether a program offers a picture there.
    virtual bool hasPicture() { return false; }
    /// Fetches it. Null when there is none, or none that can be read.
    virtual std::unique_ptr<StdPicture> picture() { return nullptr; }
};

/// The window events that wait while a command runs.
class PendingEvents {
 public:
    virtual ~PendingEvents() = default;

    /// Lets them run.
    virtual void run() = 0;
};

/// What a program gives the core to stand on.
struct Desktop {
    Windows* windows;
    Clipboard* clipboard;
    PendingEvents* pendingEvents;
};

/// A desktop without a display: messages go to standard error and count as answered with their default
/// button, no dialog can be shown, and no events wait. What is copied goes to the clipboard of the screen,
/// where there is one; nothing can be pasted.
Desktop consoleDesktop();

}  // namespace mobrel
