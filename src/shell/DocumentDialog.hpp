// SPDX-License-Identifier: MIT
// What the main window knows of an open dialog that works on the document.
#pragma once

namespace mobrel {

class DocumentDialog {
 public:
    virtual ~DocumentDialog() = default;

    /// True while a filter runs on the document for a look at it: its end stores no step.
    virtual bool Previewing() const = 0;
    /// Called when the steps that can be taken back or again are others.
    virtual void enableUndoRedo(bool undo, bool redo) = 0;
};

}  // namespace mobrel
