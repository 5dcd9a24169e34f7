// SPDX-License-Identifier: MIT
// The undo store, on a real disk.
#include <sys/stat.h>
#include <unistd.h>

#include "shell/main_window.hpp"

namespace mobrel {
namespace {

namespace fs = std::filesystem;
using test::contentsOf;
using test::FMain;

/// Notes which commands of the history are offered.
class HistoryButtons final : public DocumentView {
 public:
    void historyChanged(bool undo, bool redo) override { enabled = {undo, redo}; }

    std::pair<bool, bool> enabled;
};

/// Counts from `first` in the first byte of the picture, a step each.
void changeDocument(fMain& main, int first, int steps) {
    for (int i = 0; i < steps; ++i) {
        main.Canvas.DIB.DIBitsPtr()[0] = static_cast<std::uint8_t>(first + i);
        main.DIBFilter_ProgressEnd();
    }
}

int firstByte(const fMain& main) {
    return main.Canvas.DIB.DIBitsPtr()[0];
}

TEST_F(FMain, UndoAndRedoWalkTheHistory) {
    insideDialog([&] {
        HistoryButtons buttons;
        main.Views.add(buttons);
        main.mnuFiles(0);
        EXPECT_EQ(buttons.enabled, std::pair(false, false));
        changeDocument(main, 101, 3);
        EXPECT_EQ(buttons.enabled, std::pair(true, false));
        struct Step {
            int command;
            int byte;
            std::pair<bool, bool> buttons;
        };
        const Step steps[] = {
            {1, 103, {true, false}}, {0, 102, {true, true}}, {0, 101, {true, true}}, {0, 0, {false, true}},
            {0, 0, {false, true}},   {1, 101, {true, true}}, {1, 102, {true, true}},
        };
        main.Saved = true;
        for (const Step& step : steps) {
            main.mnuEdits(step.command);
            EXPECT_EQ(firstByte(main), step.byte);
            EXPECT_EQ(buttons.enabled, step.buttons);
        }
        EXPECT_TRUE(main.Saved);
        // a change takes the place of what was undone
        changeDocument(main, 150, 1);
        EXPECT_EQ(std::pair(main.UndoPos(), main.UndoTop()), std::pair(4, 4));
        EXPECT_EQ(temporaryFiles().size(), 4U);
        main.Redo();
        EXPECT_EQ(firstByte(main), 150);
        main.Undo();
        main.Undo();
        changeDocument(main, 160, 1);  // two steps are gone
        EXPECT_EQ(temporaryFiles().size(), 3U);
        EXPECT_EQ(buttons.enabled, std::pair(true, false));
        main.Views.remove(buttons);
    });
}

TEST_F(FMain, AStepBringsItsDepthAndSizeBack) {
    insideDialog([&] {
        main.mnuFiles(0);
        main.mnuColorsz(5);
        main.mnuColorsz(8);
        ASSERT_TRUE(main.Canvas.DIB.Create(9, 7, 0));
        main.DIBFilter_ProgressEnd();
        main.Undo();
        EXPECT_EQ(main.Info.TextInfo(), "5x4x24bpp");
        main.Undo();
        EXPECT_EQ(main.Info.TextInfo(), "5x4x4bpp");
        EXPECT_EQ(main.DIBPal.Count(), 16);
        EXPECT_EQ(main.Progress.Max(), 4);
        main.Redo();
        main.Redo();
        EXPECT_EQ(main.Info.TextInfo(), "9x7x24bpp");
        EXPECT_EQ(main.DIBPal.Count(), 0);
        EXPECT_EQ(main.Progress.Max(), 7);
    });
}

TEST_F(FMain, ASnapshotThatIsGoneOrBrokenChangesNothing) {
    insideDialog([&] {
        main.mnuFiles(0);
        changeDocument(main, 101, 2);
        const std::set<std::string> names = temporaryFiles();
        const std::string first = temporary.path() + "/" + *names.begin();
        const std::string last = temporary.path() + "/" + *names.rbegin();
        main.Undo();
        for (const bool isCut : {true, false}) {
            if (isCut) {
                fs::resize_file(first, 60);
                fs::resize_file(last, 20);
            } else {
                fs::remove(first);
                fs::remove(last);
            }
            main.Undo();
            main.Redo();
            EXPECT_EQ(firstByte(main), 101);
            EXPECT_EQ(std::pair(main.UndoPos(), main.UndoTop()), std::pair(2, 3));
        }
    });
    EXPECT_TRUE(windows.messages.empty());
}

TEST_F(FMain, ACropMakesTrueColourAndAStep) {
    insideDialog([&] {
        main.mnuColorsz(2);
        const auto before = main.UndoPos();
        ASSERT_TRUE(main.Canvas.DIB.Create(3, 2, 0));
        main.Canvas.CropDone.raise();
        EXPECT_EQ(main.Info.TextInfo(), "3x2x24bpp");
        EXPECT_EQ(main.Progress.Max(), 2);
        EXPECT_EQ(main.UndoPos(), before + 1);
    });
}

TEST_F(FMain, TheStoreKeepsTwentyFiveStepsUnderProperNames) {
    insideDialog([&] {
        main.mnuFiles(0);
        std::vector<std::string> states{contentsOf(temporary.path() + "/" + *temporaryFiles().begin())};
        for (int change = 1; change <= 30; ++change) {
            main.Canvas.DIB.DIBitsPtr()[0] = static_cast<std::uint8_t>(100 + change);
            main.DIBFilter_ProgressEnd();
            const std::string current = *temporaryFiles().rbegin();
            states.push_back(contentsOf(temporary.path() + "/" + current));
        }
        EXPECT_EQ(main.UndoPos(), 25);
        EXPECT_EQ(main.UndoTop(), 25);
        const auto names = temporaryFiles();
        ASSERT_EQ(names.size(), 25U);
        const std::string prefix = names.begin()->substr(0, 11);
        std::size_t state = states.size() - 25;
        for (int number = 0; number < 25; ++number, ++state) {
            const std::string name = prefix + (number < 10 ? "00" : "0") + std::to_string(number) + ".dat";
            ASSERT_TRUE(names.contains(name)) << name;
            EXPECT_EQ(contentsOf(temporary.path() + "/" + name), states[state]) << name;
        }
    });
    main.Unload();
    EXPECT_TRUE(temporaryFiles().empty());
}

TEST_F(FMain, ClearingTakesOwnSnapshotsAlone) {
    std::string own;
    insideDialog([&] {
        main.mnuFiles(0);
        own = temporaryFiles().begin()->substr(0, 11);
        EXPECT_EQ(own.size(), 11U);  // b and ten digits
    });
    const std::set<std::string> others = {own + "0000.dat", own + "00.dat", own + "000.bak",
                                          "b1234567890000.dat"};
    for (const auto& name : others) std::ofstream(temporary.path() + "/" + name) << "kept";
    main.Unload();
    EXPECT_EQ(temporaryFiles(), others);
}

TEST_F(FMain, SnapshotsArePrivate) {
    insideDialog([&] {
        main.mnuFiles(0);
        struct stat status {};
        ASSERT_EQ(stat((temporary.path() + "/" + *temporaryFiles().begin()).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600U);
    });
}

TEST_F(FMain, AStoreThatCannotBeWrittenChangesNoCounter) {
    setenv("tmp", (temporary.path() + "/none").c_str(), 1);
    insideDialog([&] {
        const auto before = main.UndoPos();
        main.mnuColorFilters(1);
        EXPECT_EQ(main.UndoPos(), before);
        EXPECT_EQ(main.UndoTop(), before);
    });
    EXPECT_TRUE(windows.messages.empty());
}

// It is stored before the folder and the handle are known, so the series has no number 0 to go back to.
TEST_F(FMain, TheFirstSnapshotGoesToTheRootFolder) {
    const bool writable = access("/", W_OK) == 0;
    const std::string picture = contentsOf(fileInFolder("temp.bmp"));
    insideDialog([&] {
        EXPECT_EQ(main.UndoPos(), writable ? 1 : 0);
        EXPECT_EQ(contentsOf("/b0000.dat") == picture, writable);
        EXPECT_TRUE(temporaryFiles().empty());
        changeDocument(main, 101, 2);
        main.Undo();
        main.Undo();
        EXPECT_EQ(firstByte(main), 101);
        EXPECT_EQ(main.UndoPos(), writable ? 2 : 1);
    });
}

}  // namespace
}  // namespace mobrel
