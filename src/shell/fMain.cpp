// SPDX-License-Identifier: MIT
// The main window's life: start-up, end, and the events of its objects.
#include "shell/fMain.hpp"

#include <utility>
#include <vector>

#include "platform/base/ScopedValue.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/Process.hpp"

namespace mobrel {

namespace {

// The size that the window is designed in; a hidden window tells it as its own.
constexpr WindowPlace kDesignedPlace = {.Width = 15360, .Height = 11520, .Top = 0, .Left = 0};

Desktop& globalDesktop() {
    static Desktop desktop = consoleDesktop();
    return desktop;
}

/// Every main window there was; the last one is the present one unless it was unloaded.
std::vector<std::unique_ptr<fMain>>& mainWindows() {
    static std::vector<std::unique_ptr<fMain>> windows;
    return windows;
}

bool g_referenced = false;

/// The folder of the undo files: tmp, then temp, as hosts set them. TMPDIR and then /tmp answer where
/// neither stands in the environment.
std::string temporaryFolder() {
    const auto tmp = environmentValue("tmp");
    const auto temp = environmentValue("temp");
    if (tmp && !tmp->empty()) return *tmp;
    if (temp) return *temp;
    if (tmp) return {};
    const auto folder = environmentValue("TMPDIR");
    return folder && !folder->empty() ? *folder : "/tmp";
}

}  // namespace

fMain& fMain::Global() {
    auto& windows = mainWindows();
    if (!g_referenced) {
        windows.push_back(std::make_unique<fMain>(globalDesktop()));
        g_referenced = true;
    }
    return *windows.back();
}

void fMain::setGlobalDesktop(Desktop desktop) {
    globalDesktop() = desktop;
    if (!mainWindows().empty() && !mainWindows().back()->m_loaded) g_referenced = false;
}

fMain::fMain(Desktop desktop) : m_desktop(desktop) {
    sbPressure.setMax(100);
    sbSize.setMax(100);
    connectCanvas();
}

/// kept: Open runs before the handle, the folder and the dither object exist. The first snapshot therefore
/// goes to /b0000.dat, in the root that joinPath makes of no folder, and a palette picture ends the program
/// with error 91. Hosts know both.
void fMain::Load(Start start) {
    runCommand([&] {
        m_loaded = true;
        if (start == Start::Host) mnuFiles(0);
        sbPressure.setValue(50);
        sbSize.setValue(25);
        makeFilter();
        makeDither();
        m_undoHandle = uniqueProcessHandle();
        m_tempPath = temporaryFolder();
        watchUndoFiles();
        Info.setTextZoom("100%");
        if (start == Start::Host) pvHostStart();
        setHourglass(false);
    });
}

void fMain::Unload() {
    if (m_isInPendingEvents) {
        m_isUnloadWaiting = true;
    } else {
        unloadNow();
    }
}

/// A command that lets pending events run, itself or by a command within it, as Paste does when it saves.
void fMain::runCommand(const std::function<void()>& command) {
    const auto unloadIfAsked = [this] {
        if (m_runningCommands == 0 && std::exchange(m_isUnloadWaiting, false)) unloadNow();
    };
    try {
        const ScopedValue running(m_runningCommands, m_runningCommands + 1);
        command();
    } catch (...) {
        unloadIfAsked();  // who has closed the window does not find it open again
        throw;
    }
    unloadIfAsked();
}

void fMain::runPendingEvents() {
    const ScopedValue running(m_isInPendingEvents, true);
    m_desktop.pendingEvents->run();
}

void fMain::unloadNow() {
    if (!m_loaded) return;
    m_loaded = false;
    setHourglass(true);
    mnuEdits(3);
    writeResult();
    SaveMainSettings({.place = kDesignedPlace,
                      .windowState = WindowState::Normal,
                      .LastPath = LastPath,
                      .DialogPreview = DialogPreview,
                      .DialogFitMode = DialogFitMode,
                      .DialogJPEGquality = DialogJPEGquality});
    pvClearUndoFiles();
    Views.tell(&DocumentView::unloading);
    DIBFilter.reset();
    DIBDither.reset();
    DIBPal.Clear();
    if (!mainWindows().empty() && mainWindows().back().get() == this) g_referenced = false;
    setHourglass(false);
}

void fMain::connectCanvas() {
    Canvas.setClipboard(m_desktop.clipboard);
    Canvas.DIBProgress.connect([this](std::int32_t value) { Progress.setValue(value); });
    Canvas.DIBProgressEnd.connect([this] {
        Progress.setValue(0);
        endCanvasWork();
    });
    Canvas.CropDone.connect([this] {
        Progress.setMax(Canvas.DIB.Height());
        endCanvasWork();
    });
}

void fMain::makeFilter() {
    DIBFilter = std::make_unique<cDIBFilter>();
    DIBFilter->Progress.connect([this](std::int32_t line) { DIBFilter_Progress(line); });
    DIBFilter->ProgressEnd.connect([this] { DIBFilter_ProgressEnd(); });
}

void fMain::makeDither() {
    DIBDither = std::make_unique<cDIBDither>();
    DIBDither->Progress.connect([this](std::int32_t line) { Progress.setValue(line); });
    DIBDither->ProgressEnd.connect([this] {
        Progress.setValue(0);
        Views.tell(&DocumentView::pictureChanged);
        pvSaveUndoDIB();
    });
}

void fMain::DIBFilter_ProgressEnd() {
    Progress.setValue(0);
    Views.tell(&DocumentView::pictureChanged);
    if (Views.isPreviewing()) return;
    if (Rules.filterMakesTrueColour) makeTrueColour();
    pvSaveUndoDIB();
}

/// The canvas's own pixel work makes true colour of any document.
void fMain::endCanvasWork() {
    Views.tell(&DocumentView::pictureChanged);
    makeTrueColour();
    pvSaveUndoDIB();
}

void fMain::makeTrueColour() {
    BPP = 24;
    Views.tell(&DocumentView::depthChanged);
    refreshInfo();
}

}  // namespace mobrel
