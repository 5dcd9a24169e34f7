// SPDX-License-Identifier: MIT
// A main window for tests, whose desktop a test plays.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "imaging/cDIBSave.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/ProfileFile.hpp"
#include "shell/fMain.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel::test {

namespace fs = std::filesystem;

/// A desktop that notes what it is asked for, and lets a test act inside a dialog.
class TestWindows final : public Windows {
 public:
    MessageAnswer message(std::string_view text, MessageIcon, MessageButtons) override {
        messages.emplace_back(text);
        return answer;
    }
    bool showFilter(fMain&, std::optional<int> id) override {
        filters.push_back(id);
        return open("filter");
    }
    bool showTexturize(fMain&) override { return open("texturize"); }
    bool showResize(fMain&) override { return open("resize"); }
    bool showOrientation(fMain&) override { return open("orientation"); }
    bool showPrint(fMain&) override { return open("print"); }
    bool showProperties(fMain&) override { return open("properties"); }
    bool showAbout(fMain&) override { return open("about"); }
    std::optional<FileAnswer> askForFile(fMain&, const FileQuestion& question) override {
        open(question.title + " " + question.fileName);
        return std::nullopt;
    }
    void setHourglass(bool on) override { hourglass = on; }

    std::vector<std::string> messages;
    MessageAnswer answer = MessageAnswer::Ok;
    std::vector<std::string> dialogs;
    std::vector<std::optional<int>> filters;
    std::function<void()> insideDialog;
    bool hourglass = false;
    bool hourglassAtDialog = false;

 private:
    bool open(const std::string& name) {
        hourglassAtDialog = hourglass;
        dialogs.push_back(name);
        if (insideDialog) insideDialog();
        return true;
    }
};

/// Notes what is copied to it.
class TestClipboard final : public Clipboard {
 public:
    void copyPicture(const PictureView& picture) override {
        ++copies;
        width = picture.width;
    }
    bool hasPicture() override { return offered != nullptr; }
    std::unique_ptr<StdPicture> picture() override { return std::move(offered); }

    std::unique_ptr<StdPicture> offered;
    int copies = 0;
    int width = 0;
};

class TestEvents final : public PendingEvents {
 public:
    void run() override {
        ++runs;
        if (act) act();
    }
    int runs = 0;
    std::function<void()> act;
};

/// The first snapshot of a run lies in the root folder; the test takes it away again.
class StrayFirstSnapshot {
 public:
    ~StrayFirstSnapshot() {
        if (!m_wasThere) deleteFileIfPossible("/b0000.dat");
    }

 private:
    bool m_wasThere = fileExists("/b0000.dat");
};

inline std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A main window in folders of its own.
class FMain : public testing::Test {
 protected:
    void SetUp() override {
        setenv("MOBREL_FOLDER", folder.path().c_str(), 1);
        setenv("tmp", temporary.path().c_str(), 1);
        writePicture("temp.bmp", 24);
    }
    void TearDown() override {
        unsetenv("MOBREL_FOLDER");
        unsetenv("tmp");
    }

    /// A picture of 5 x 4 pixels with all bytes different.
    void writePicture(const std::string& name, std::uint8_t bpp) {
        cDIB dib;
        ASSERT_TRUE(dib.Create(5, 4, 0));
        for (int i = 0; i < 80; ++i) {
            if (i % 4 != 3) dib.DIBitsPtr()[i] = static_cast<std::uint8_t>(i * 3);
        }
        cDIBPal palette;
        cDIBDither dither;
        palette.InitializePalette(256);
        dither.InitializePalID(5, 4, 8);
        cDIBSave().Save_BMP(fileInFolder(name), dib, palette, &dither, bpp);
    }

    std::string fileInFolder(const std::string& name) const { return folder.path() + "/" + name; }

    void askFor(const std::string& filter) {
        WritePrivateProfileString("ZV-HARBORLY", "Filter", filter, fileInFolder("config.ini"));
    }
    std::string winState() const {
        return GetPrivateProfileString("ZV-HARBORLY", "WinState", "none", 9, fileInFolder("config.ini"));
    }
    std::string setting(const std::string& section, const std::string& key) const {
        return GetPrivateProfileString(section, key, "none", 500, fileInFolder("Mobrel.ini"));
    }

    /// Loads a main window whose task is a dialog, and acts while the dialog is open.
    void insideDialog(const std::function<void()>& act) {
        askFor("5");
        windows.insideDialog = act;
        main.Load();
    }

    std::set<std::string> temporaryFiles() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(temporary.path()))
            names.insert(entry.path().filename());
        return names;
    }

    StrayFirstSnapshot stray;
    TemporaryFolder folder;
    TemporaryFolder temporary;
    TestWindows windows;
    TestClipboard clipboard;
    TestEvents events;
    fMain main{Desktop{&windows, &clipboard, &events}};
};

}  // namespace mobrel::test
