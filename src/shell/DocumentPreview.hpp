// SPDX-License-Identifier: MIT
// What dialogs try on the document, from the picture that it had before.
#pragma once

#include <functional>

#include "imaging/cDIB.hpp"

namespace mobrel {

class fMain;

/// A copy of the document as it was before, from which every try starts anew; and where wanted a reduced
/// copy, on which a change shows at once. All surfaces may be empty: then nothing happens.
class DocumentPreview {
 public:
    using Change = std::function<void(cDIB&)>;

    /// `before` is the surface for the copy: that of the pane that shows it, or one of the dialog's own.
    DocumentPreview(fMain& main, cDIB& before) : m_main(main), m_before(before) {}

    /// Makes the before picture what the document is now, at its size.
    void takeDocument();
    /// The same for a document that has kept its size.
    void acceptDocument();
    /// Makes the document what it was before, and shows it.
    void restoreDocument();

    /// Changes the document for a look at it, always from the before picture. isRunning() is true meanwhile.
    void tryOnDocument(const Change& change);
    bool isRunning() const noexcept { return m_isRunning; }

    /// Gives the reduced copy the largest size that fits into a pane, and its place there.
    void fitAfter(int paneWidth, int paneHeight);
    /// Makes the reduced copy anew from the before picture.
    void makeAfter(const Change& change);
    const cDIB& after() const noexcept { return m_after; }
    int afterLeft() const noexcept { return m_afterLeft; }
    int afterTop() const noexcept { return m_afterTop; }

    /// Lets go of both copies.
    void release();

 private:
    fMain& m_main;
    cDIB& m_before;
    cDIB m_after;
    int m_afterLeft = 0;
    int m_afterTop = 0;
    bool m_isRunning = false;
};

}  // namespace mobrel
