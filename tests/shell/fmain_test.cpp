// SPDX-License-Identifier: MIT
// The whole life of a document, without a window.
#include <map>

#include "platform/pictures/PictureReader.hpp"
#include "shell/main_window.hpp"

namespace mobrel {
namespace {

using test::contentsOf;
using test::FMain;
using test::TestWindows;

TEST_F(FMain, ANumberWithoutATaskWritesThePictureBackAndEnds) {
    const std::string picture = contentsOf(fileInFolder("temp.bmp"));
    askFor("3");
    main.Load();
    EXPECT_EQ(contentsOf(fileInFolder("temp.bmp")), picture);
    EXPECT_EQ(winState(), "1");
    EXPECT_EQ(main.exitStatus(), 0);
    EXPECT_EQ(main.DIBFilter, nullptr);
    EXPECT_EQ(main.Info.TextInfo(), "5x4x24bpp");
    EXPECT_EQ(main.Info.TextZoom(), "100%");
    EXPECT_EQ(main.sbPressure.Value(), 50);
    EXPECT_EQ(main.sbSize.Value(), 25);
    EXPECT_EQ(events.runs, 2);
    EXPECT_FALSE(windows.hourglass);
    EXPECT_TRUE(windows.messages.empty());
    EXPECT_TRUE(temporaryFiles().empty());
}

TEST_F(FMain, TheEndHandsThePictureOn) {
    ::setenv("MOBREL_RESULT", fileInFolder("result.bmp").c_str(), 1);
    askFor("8");
    main.Load();
    ::unsetenv("MOBREL_RESULT");
    EXPECT_EQ(clipboard.copies, 1);
    EXPECT_EQ(clipboard.width, 5);
    EXPECT_EQ(contentsOf(fileInFolder("result.bmp")), contentsOf(fileInFolder("temp.bmp")));
    EXPECT_EQ(main.BPP, 1);
}

TEST_F(FMain, WhatCannotBeHandedOnStopsNothing) {
    ::setenv("MOBREL_RESULT", fileInFolder("nowhere/result.bmp").c_str(), 1);
    askFor("3");
    main.Load();
    deleteFileIfPossible(fileInFolder("temp.bmp"));
    fMain empty({&windows, &clipboard, &events});
    empty.Load();
    ::unsetenv("MOBREL_RESULT");
    EXPECT_EQ(windows.messages, (std::vector<std::string>{"The picture could not be written to " +
                                                              fileInFolder("nowhere/result.bmp"),
                                                          "Unexpected error loading image"}));
    EXPECT_EQ(clipboard.copies, 1) << "an empty document is not copied";
    EXPECT_EQ(winState(), "1");
}

TEST_F(FMain, UnloadWritesTheSettingsOfTheDesignedWindow) {
    askFor("3");
    main.Load();
    EXPECT_EQ(setting("Forms", "MainWidth"), "15360");
    EXPECT_EQ(setting("Forms", "MainLeft"), "0");
    EXPECT_EQ(setting("Forms", "MainWindowState"), "0");
    EXPECT_EQ(setting("Folders", "MainLastPath"), fileInFolder("temp.bmp"));
    EXPECT_EQ(setting("Options", "MainDialogPreview"), "False");
    EXPECT_EQ(setting("Options", "MainDialogJPEGquality"), "0");
}

TEST_F(FMain, AMaximisedWindowKeepsItsWrittenPlace) {
    SaveMainSettings({.place = {1, 2, 3, 4}, .windowState = WindowState::Normal, .LastPath = ""});
    SaveMainSettings({.place = {5, 6, 7, 8},
                      .windowState = WindowState::Maximised,
                      .LastPath = "",
                      .DialogPreview = true});
    EXPECT_EQ(setting("Forms", "MainWidth"), "1");
    EXPECT_EQ(setting("Forms", "MainWindowState"), "2");
    EXPECT_EQ(setting("Options", "MainDialogPreview"), "True");
}

TEST_F(FMain, EveryDialogNumberOpensItsFilter) {
    const std::map<std::string, int> ids = {
        {"5", 10},  {"6", 4},   {"7", 11}, {"16", 23},  {"17", 3},     {"18", 1},    {"19", 25},
        {"20", 10}, {"21", 11}, {"22", 5}, {"23", 20},  {"24", 8},     {"25", 16},   {"26", 14},
        {"27", 13}, {"29", 2},  {"", 10},  {"abc", 10}, {"1e999", 10}, {"1.8e1", 1},
    };
    const std::set<std::string> quiet = {"5", "6", "7", "16", "", "abc", "1e999"};
    for (const auto& [number, id] : ids) {
        TestWindows own;
        askFor(number);
        fMain window({&own, &clipboard, &events});
        window.Load();
        ASSERT_EQ(own.dialogs.size(), 1U) << number;
        EXPECT_EQ(own.filters, std::vector{std::optional(id)}) << number;
        EXPECT_EQ(own.hourglassAtDialog, !quiet.contains(number)) << number;
        EXPECT_EQ(winState(), "none");
        window.Unload();
    }
}

TEST_F(FMain, AMissingPictureIsToldAndTheTaskGoesOn) {
    deleteFileIfPossible(fileInFolder("temp.bmp"));
    askFor("28");
    main.Load();
    EXPECT_EQ(windows.messages, std::vector<std::string>{"Unexpected error loading image"});
    EXPECT_EQ(main.UndoPos(), 0);
    EXPECT_EQ(winState(), "1");
    EXPECT_FALSE(fileExists(fileInFolder("temp.bmp")));
    EXPECT_EQ(main.exitStatus(), 0);
}

TEST_F(FMain, APalettePictureEndsTheStart) {
    writePicture("temp.bmp", 8);
    askFor("3");
    EXPECT_EQ(fatalErrorOf([&] { main.Load(); }), errorText(ErrorNumber::ObjectNotSet));
    EXPECT_EQ(winState(), "none");
}

TEST_F(FMain, APalettePictureOpenedLaterIsTaken) {
    insideDialog([&] {
        writePicture("temp.bmp", 8);
        main.mnuFiles(0);
        EXPECT_EQ(main.BPP, 8);
        EXPECT_EQ(main.DIBPal.Count(), 256);
        const std::string before = contentsOf(fileInFolder("temp.bmp"));
        main.mnuFiles(1);
        EXPECT_EQ(contentsOf(fileInFolder("temp.bmp")), before);
        EXPECT_TRUE(main.Saved);
    });
}

TEST_F(FMain, ABrokenPictureLeavesTheDocumentAsItWas) {
    insideDialog([&] {
        std::ofstream(fileInFolder("temp.bmp")) << "BM, but no picture";
        main.mnuFiles(0);
        EXPECT_EQ(windows.messages.size(), 1U);
        EXPECT_EQ(main.Canvas.DIB.Width(), 5);
        EXPECT_NE(main.Canvas.DIB.hDIB(), nullptr);
        EXPECT_EQ(main.BPP, 24);
    });
}

TEST_F(FMain, AFilterMovesTheBarAndStoresOneStep) {
    insideDialog([&] {
        main.mnuFiles(0);
        EXPECT_EQ(main.Progress.Max(), 4);
        std::vector<int> values;
        main.DIBFilter->Progress.connect([&](std::int32_t) { values.push_back(main.Progress.Value()); });
        main.mnuColorFilters(1);
        EXPECT_EQ(values, (std::vector<int>{0, 1, 2, 3}));
        EXPECT_EQ(main.Progress.Value(), 0);
        EXPECT_EQ(main.UndoPos(), 2);
        EXPECT_EQ(main.UndoTop(), 2);
        EXPECT_FALSE(main.Saved);
        EXPECT_EQ(temporaryFiles().size(), 2U);
    });
}

TEST_F(FMain, ADepthCommandStoresItsStepAtTheNewDepth) {
    insideDialog([&] {
        const std::int32_t before = main.UndoPos();
        main.mnuColorsz(5);
        EXPECT_EQ(main.Info.TextInfo(), "5x4x4bpp");
        EXPECT_EQ(main.UndoPos(), before + 1);
        const std::set<std::string> stored = temporaryFiles();
        ASSERT_EQ(stored.size(), 1U);
        const std::string step = contentsOf(temporary.path() + "/" + *stored.begin());
        EXPECT_EQ(step.at(28), 4) << "bits a pixel";
        EXPECT_FALSE(windows.hourglass) << "the palette is fitted";
        for (const int separator : {3, 7}) {
            main.Info.setTextInfo("");
            main.mnuColorsz(separator);
            EXPECT_EQ(main.Info.TextInfo(), "5x4x4bpp");
        }
        EXPECT_EQ(main.UndoPos(), before + 1);
    });
}

TEST_F(FMain, SaveChoosesTheBmpNameOrAsks) {
    insideDialog([&] {
        const auto save = [&](const std::string& name) {
            windows.dialogs.clear();
            windows.insideDialog = nullptr;
            main.LastFilename = name;
            main.mnuFiles(1);
            return windows.dialogs.empty() ? main.LastFilename : windows.dialogs[0];
        };
        EXPECT_EQ(save(fileInFolder("a.jpg")), fileInFolder("a.bmp"));
        EXPECT_TRUE(fileExists(fileInFolder("a.bmp")));
        EXPECT_EQ(save(fileInFolder("a.jpg")), "Save as " + fileInFolder("a.jpg"));  // a.bmp is somebody's
        EXPECT_EQ(save(fileInFolder("b.BMP")), fileInFolder("b.bmp"));
        EXPECT_EQ(save("[Unnamed]"), "Save as [Unnamed]");
        for (const char* tooShort : {"", "ab"}) {
            EXPECT_EQ(fatalErrorOf([&] { save(tooShort); }), errorText(ErrorNumber::InvalidCall));
        }
        EXPECT_EQ(fatalErrorOf([&] { save(fileInFolder("none/a.bmp")); }),
                  errorText(ErrorNumber::PathNotFound));
    });
}

TEST_F(FMain, UnknownCommandsDoNothing) {
    insideDialog([&] {
        const auto before = main.UndoPos();
        for (const int index : {-1, 3, 99}) {
            main.mnuFiles(index);
            main.mnuColorFilters(index);
            main.mnuDefinitions(index);
        }
        EXPECT_EQ(main.UndoPos(), before);
    });
}

TEST_F(FMain, GlobalMakesANewOneAfterUnload) {
    fMain::setGlobalDesktop({&windows, &clipboard, &events});
    askFor("3");
    fMain& first = fMain::Global();
    EXPECT_EQ(&fMain::Global(), &first);
    first.Load();
    fMain& second = fMain::Global();
    EXPECT_NE(&second, &first);
    second.Unload();  // never loaded: nothing happens
    EXPECT_EQ(&fMain::Global(), &second);
    EXPECT_EQ(first.LastFilename, fileInFolder("temp.bmp"));  // still there
    fMain::setGlobalDesktop(consoleDesktop());
}

}  // namespace
}  // namespace mobrel
