// SPDX-License-Identifier: MIT
// What those who show the document hear, what they can try on it, and whom a run is for.
#include "shell/DocumentPreview.hpp"
#include "shell/main_window.hpp"
#include "support/FileSizeLimit.hpp"

namespace mobrel {
namespace {

using test::contentsOf;
using test::FMain;

class NotingView final : public DocumentView {
 public:
    explicit NotingView(DocumentViews& views) : m_views(views) { views.add(*this); }
    ~NotingView() override { m_views.remove(*this); }

    bool Previewing() const override { return isPreviewing; }
    void pictureChanged() override { note("picture"); }
    void historyChanged(bool undo, bool redo) override {
        note(std::string("history ") + (undo ? "undo" : "-") + (redo ? " redo" : " -"));
    }
    void depthChanged() override { note("depth"); }
    void captionChanged() override { note("caption"); }
    void unloading() override { note("unloading"); }

    /// What was heard since the last call, each once.
    std::set<std::string> heard() { return std::exchange(m_heard, {}); }

    bool isPreviewing = false;
    std::function<void()> whenTold;

 private:
    void note(const std::string& what) {
        m_heard.insert(what);
        if (whenTold) whenTold();
    }

    DocumentViews& m_views;
    std::set<std::string> m_heard;
};

using Heard = std::set<std::string>;

TEST_F(FMain, ViewsHearWhatBecomesOfTheDocument) {
    NotingView view(main.Views);
    insideDialog([&] {
        main.mnuFiles(0);
        EXPECT_EQ(view.heard(), (Heard{"picture", "depth", "caption", "history - -"}));
        main.mnuColorFilters(1);
        EXPECT_EQ(view.heard(), (Heard{"picture", "history undo -"}));
        main.mnuColorsz(5);
        EXPECT_EQ(view.heard(), (Heard{"picture", "depth", "caption", "history undo -"}));
        main.mnuEdits(0);
        EXPECT_EQ(view.heard(), (Heard{"picture", "depth", "caption", "history undo redo"}));
        main.mnuFiles(1);
        EXPECT_EQ(view.heard(), Heard{"caption"});
        main.mnuFiles(6);
        EXPECT_EQ(view.heard(), Heard{"unloading"});
    });
}

TEST_F(FMain, EveryViewIsAskedWhetherItPreviews) {
    const NotingView first(main.Views);
    NotingView second(main.Views);
    insideDialog([&] {
        const int steps = main.UndoPos();
        second.isPreviewing = true;
        main.mnuColorFilters(1);
        EXPECT_EQ(main.UndoPos(), steps);
        second.isPreviewing = false;
        main.DIBFilter_ProgressEnd();  // as an Apply does
        EXPECT_EQ(main.UndoPos(), steps + 1);
    });
}

TEST_F(FMain, AViewMayLeaveWhileAnotherIsTold) {
    NotingView first(main.Views);
    auto second = std::make_unique<NotingView>(main.Views);
    first.whenTold = [&] { second.reset(); };
    main.CheckUndoRedoState();
    EXPECT_EQ(first.heard(), Heard{"history - -"});
}

TEST_F(FMain, APreviewStartsAnewFromThePictureBefore) {
    cDIB before;
    DocumentPreview preview(main, before);
    const auto darken = [](cDIB& picture) {
        for (int i = 0; i < picture.Size(); ++i) picture.DIBitsPtr()[i] /= 2;
    };
    const auto firstByte = [](const cDIB& picture) { return static_cast<int>(picture.DIBitsPtr()[0]); };
    preview.tryOnDocument(darken);  // of nothing
    insideDialog([&] {
        main.Canvas.DIB.DIBitsPtr()[0] = 200;
        preview.takeDocument();
        EXPECT_EQ(before.Width(), 5);
        for (int i = 0; i < 2; ++i) {
            preview.tryOnDocument([&](cDIB& document) {
                EXPECT_TRUE(preview.isRunning());
                darken(document);
            });
        }
        EXPECT_FALSE(preview.isRunning());
        EXPECT_EQ(firstByte(main.Canvas.DIB), 100);
        preview.acceptDocument();
        preview.tryOnDocument(darken);
        NotingView view(main.Views);
        preview.restoreDocument();
        EXPECT_EQ(view.heard(), Heard{"picture"});
        EXPECT_EQ(firstByte(main.Canvas.DIB), 100);
        preview.fitAfter(11, 2);
        EXPECT_EQ(std::pair(preview.after().Width(), preview.after().Height()), std::pair(2, 2));
        EXPECT_EQ(std::pair(preview.afterLeft(), preview.afterTop()), std::pair(4, 0));
        preview.makeAfter([](cDIB& copy) { copy.DIBitsPtr()[0] = 7; });
        EXPECT_EQ(firstByte(preview.after()), 7);
        EXPECT_EQ(firstByte(before), 100);
        preview.release();
        EXPECT_EQ(before.hDIB(), nullptr);
    });
}

TEST_F(FMain, AnUnloadAmongPendingEventsWaitsForTheCommand) {
    insideDialog([&] {
        events.act = [&] {
            main.Unload();
            EXPECT_NE(main.DIBFilter, nullptr);
        };
        main.LastFilename = fileInFolder("late.bmp");
        main.mnuFiles(1);
        EXPECT_TRUE(fileExists(fileInFolder("late.bmp")));
        EXPECT_NE(main.DIBFilter, nullptr) << "the start that opened the dialog still runs";
    });
    EXPECT_EQ(main.DIBFilter, nullptr);
    EXPECT_EQ(clipboard.copies, 1);
}

TEST_F(FMain, AnUnloadThatWaitsIsDoneAfterAnErrorToo) {
    main.Load(Start::Editor);
    main.Canvas.DIB.Create(2, 2, 0);
    events.act = [&] { main.Unload(); };
    main.LastFilename = fileInFolder("nowhere/a.bmp");
    EXPECT_THROW(main.mnuFiles(1), RuntimeError);
    EXPECT_EQ(main.DIBFilter, nullptr);
}

TEST_F(FMain, AnEditorStartsEmptyAndStaysLoaded) {
    askFor("15");
    main.Load(Start::Editor);
    EXPECT_EQ(main.Canvas.DIB.hDIB(), nullptr);
    EXPECT_NE(main.DIBFilter, nullptr);
    EXPECT_EQ(winState(), "none");
    main.mnuFiles(6);
    EXPECT_EQ(main.DIBFilter, nullptr);
}

TEST_F(FMain, RulesSayWhatAFilterAndASaveDo) {
    insideDialog([&] {
        main.mnuColorsz(5);
        main.mnuColorFilters(1);
        EXPECT_EQ(main.BPP, 4);
        main.Rules.filterMakesTrueColour = true;
        main.mnuColorFilters(1);
        EXPECT_EQ(main.BPP, 24);

        main.Rules.saveDeletesFirst = false;
        main.LastFilename = fileInFolder("kept.bmp");
        main.mnuFiles(1);
        const std::string picture = contentsOf(main.LastFilename);
        EXPECT_EQ(picture.substr(0, 2), "BM");
        main.mnuColorFilters(1);
        const auto error = fatalErrorOf([&] {
            const test::FileSizeLimit full(20);
            main.mnuFiles(1);
        });
        EXPECT_EQ(error, errorText(ErrorNumber::DiskFull));
        EXPECT_EQ(contentsOf(main.LastFilename), picture);
    });
}

}  // namespace
}  // namespace mobrel
