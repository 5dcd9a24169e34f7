// SPDX-License-Identifier: MIT
// The owner of the one document, and of everything that works on it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "canvas/ucCanvas.hpp"
#include "controls/ucInfo.hpp"
#include "controls/ucProgress.hpp"
#include "controls/zenSlider.hpp"
#include "filters/cDIBFilter.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "imaging/cDIBSave.hpp"
#include "platform/screen/Desktop.hpp"
#include "shell/DocumentView.hpp"
#include "shell/RunRules.hpp"
#include "shell/mSettings.hpp"

namespace mobrel {

/// The main window as an object: the document, its depth and names, the undo store, every command, and
/// the life from Load to Unload. What needs a screen goes through the Desktop it was given.
class fMain {
 public:
    /// The one main window of a program, made on first use. After its Unload the next use makes a new
    /// one, which was never loaded; the old one lives on until the process ends, since a command of it
    /// may still be running.
    static fMain& Global();
    /// What objects made by Global stand on; the console desktop until a program gives another. One that was
    /// never loaded is made anew.
    static void setGlobalDesktop(Desktop desktop);

    explicit fMain(Desktop desktop);
    fMain(const fMain&) = delete;
    fMain& operator=(const fMain&) = delete;

    /// Start-up: opens temp.bmp, makes the objects, runs the task that config.ini asks for. For an editor the
    /// first and the last are left out.
    void Load(Start start = Start::Host);
    /// The end: copies the picture to the clipboard, writes it to the file that MOBREL_RESULT names, writes
    /// the settings, clears the undo store, unloads the views, releases the objects. Nothing for a window
    /// that is not loaded. One that comes in through pending events waits for the end of the command that let
    /// them run.
    void Unload();

    /// What the program ends with: 0, or 1 when the host's task could not be done at all.
    int exitStatus() const noexcept { return m_exitStatus; }

    RunRules Rules;
    DocumentViews Views;

    ucCanvas Canvas;
    ucInfo Info;
    ucProgress Progress;
    zenSlider sbPressure;
    zenSlider sbSize;

    cDIBPal DIBPal;
    cDIBSave DIBSave;
    /// Null until Load has made them, and after Unload.
    std::unique_ptr<cDIBFilter> DIBFilter;
    std::unique_ptr<cDIBDither> DIBDither;
    /// The depth that the document counts as: 1, 4, 8, 24, or 0 when no picture was ever set. The
    /// surface is 32-bit whatever it says.
    std::uint8_t BPP = 0;

    /// What the filter dialog was last set to.
    std::int16_t LastFilterID = 0;
    std::string LastFilename;
    std::string LastPath;
    bool Saved = false;
    bool DialogPreview = false;
    bool DialogFitMode = false;
    std::int16_t DialogJPEGquality = 0;

    /// Commands by their place in a menu, separators counted; an unknown index does nothing.
    /// Files: 0 Open (re-reads temp.bmp), 1 Save, 2 Save as, 6 ends the window.
    void mnuFiles(int Index);
    /// Edit: 0 Undo, 1 Redo, 3 Copy, 4 Paste.
    void mnuEdits(int Index);
    /// Colour depths: 0 black and white, 1 and 2 16 and 256 greys, 4 as 0, 5 and 6 16 and 256 colours,
    /// 8 true colour.
    void mnuColorsz(int Index);
    /// Colour filters: 0 greys, 1 negative, 2 sepia.
    void mnuColorFilters(int Index);
    /// Definition filters: 7 despeckle.
    void mnuDefinitions(int Index);

    /// Stores the document as a new step of the undo store. A failure changes no counter and says
    /// nothing.
    void pvSaveUndoDIB();
    /// One step back or forward, with its depth; nothing at the ends of the history. A snapshot that cannot
    /// be read leaves picture and counters as they are, and says nothing.
    void Undo();
    void Redo();
    /// Tells the views what can be undone and redone.
    void CheckUndoRedoState();

    /// What a filter's events do. A dialog that filters the document calls them, and calls the end once more
    /// when it makes a preview the document.
    void DIBFilter_Progress(std::int32_t Line) { Progress.setValue(Line); }
    void DIBFilter_ProgressEnd();

    /// The mouse pointer of the screen.
    void setHourglass(bool on) { m_desktop.windows->setHourglass(on); }

    std::int32_t UndoPos() const noexcept { return m_undoPos; }
    std::int32_t UndoTop() const noexcept { return m_undoTop; }

 private:
    void connectCanvas();
    void makeFilter();
    void makeDither();
    cDIBFilter& filter() const;
    void endCanvasWork();
    void makeTrueColour();

    void runCommand(const std::function<void()>& command);
    void runPendingEvents();
    void unloadNow();

    void pvOpen();
    void pvSave();
    void pvSaveAs();
    void pvPaste();
    bool isPasteAllowed();
    std::unique_ptr<StdPicture> pvLoadPictureFile(const std::string& path);
    void pvSetPicture(std::unique_ptr<StdPicture> picture);
    void pvRefreshFileCaption();
    void refreshInfo();

    void writeResult();
    void writeAside(const std::string& path);

    std::string undoFile(std::int32_t number) const;
    void watchUndoFiles() const;
    void loadUndoFile(std::int32_t number);
    void pvClearUndoFiles();
    void pvShiftUndoFiles();

    void pvHostStart();
    void pvTail();
    void refuseHostTask();

    Desktop m_desktop;
    bool m_loaded = false;
    int m_runningCommands = 0;
    bool m_isInPendingEvents = false;
    bool m_isUnloadWaiting = false;
    int m_exitStatus = 0;
    std::int32_t m_undoHandle = 0;
    std::int32_t m_undoPos = 0;
    std::int32_t m_undoTop = 0;
    std::string m_tempPath;
};

}  // namespace mobrel
