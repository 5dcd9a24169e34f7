// SPDX-License-Identifier: MIT
// Everything that needs a screen, as small interfaces; and what stands in for them without one.
#pragma once

#include <memory>
#include <string_view>

#include "platform/pictures/PictureView.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

enum class MessageIcon { Exclamation, Question, Critical };
enum class MessageButtons { Ok, YesNoCancel };
enum class MessageAnswer { Ok, Yes, No, Cancel };

/// Windows and messages.
class Windows {
 public:
    virtual ~Windows() = default;

    /// Shows a message box and waits for the answer.
    virtual MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) = 0;

    /// Shows the dialog of that name and waits until it is closed. `id` is what the dialog starts with,
    /// for the filter dialog its filter id. False when it cannot be shown, and then the reason has been
    /// told.
    virtual bool showDialog(std::string_view name, int id) = 0;

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
