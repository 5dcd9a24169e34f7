// SPDX-License-Identifier: MIT
// Whoever shows the document: dialogs on it, the main window.
#pragma once

#include <vector>

namespace mobrel {

/// Hears what becomes of the document while it stands in the list of fMain, which so needs to know no dialog.
class DocumentView {
 public:
    DocumentView() = default;
    virtual ~DocumentView() = default;
    DocumentView(const DocumentView&) = delete;
    DocumentView& operator=(const DocumentView&) = delete;

    /// True at the moments in which a filter runs on the document for a look at it: its end stores no step.
    virtual bool Previewing() const { return false; }

    /// The picture is another, or was changed.
    virtual void pictureChanged() {}
    /// Which steps can be taken back and again.
    virtual void historyChanged(bool /*undo*/, bool /*redo*/) {}
    virtual void depthChanged() {}
    /// The file's name or the picture's size.
    virtual void captionChanged() {}
    /// The main window is being unloaded, and its views with it.
    virtual void unloading() {}
};

/// The views of a document. One may leave while another is told.
class DocumentViews {
 public:
    void add(DocumentView& view) { m_views.push_back(&view); }
    void remove(DocumentView& view) { std::erase(m_views, &view); }

    bool isPreviewing() const;

    template <typename... Args>
    void tell(void (DocumentView::*what)(Args...), Args... args) const {
        for (DocumentView* const view : std::vector(m_views)) {
            if (isThere(view)) (view->*what)(args...);
        }
    }

 private:
    bool isThere(const DocumentView* view) const;

    std::vector<DocumentView*> m_views;
};

}  // namespace mobrel
