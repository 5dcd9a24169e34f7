// SPDX-License-Identifier: MIT
// The document's life: Open, Save, and what makes a picture the document.
#include <algorithm>
#include <string_view>
#include <utility>

#include "imaging/mGDIpEx.hpp"
#include "platform/base/AsciiText.hpp"
#include "platform/pictures/PictureReader.hpp"
#include "platform/system/AtomicFile.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/Process.hpp"
#include "shell/fMain.hpp"
#include "shell/mMisc.hpp"

namespace mobrel {

namespace {

constexpr const char* kUnnamed = "[Unnamed]";
constexpr const char* kSaveTypes =
    "Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|JPEG (*.jpg)|*.jpg|PNG (*.png)|*.png";

/// The path with its last three characters replaced by "bmp". Error 5 for a shorter one.
std::string pvBmpName(const std::string& path) {
    if (path.size() < 3) throw RuntimeError(ErrorNumber::InvalidCall);
    return path.substr(0, path.size() - 3) + "bmp";
}

/// The path's last three characters, or as many as it has.
std::string_view pvFileType(std::string_view path) {
    return path.substr(path.size() - std::min<std::size_t>(path.size(), 3));
}

}  // namespace

void fMain::pvOpen() {
    const std::string file = joinPath(AppFolder(), "temp.bmp");
    LastPath = file;
    runPendingEvents();
    setHourglass(true);
    auto picture = pvLoadPictureFile(file);
    const bool loaded = picture != nullptr;
    pvSetPicture(std::move(picture));
    setHourglass(false);
    if (!loaded) return;
    pvClearUndoFiles();
    pvSaveUndoDIB();
    LastFilename = file;
    pvRefreshFileCaption();
}

void fMain::pvSave() {
    const std::string file = pvBmpName(LastFilename);
    if (LastFilename == kUnnamed || (!equalIgnoringCase(LastFilename, file) && fileExists(file))) {
        mnuFiles(2);
        return;
    }
    runPendingEvents();
    if (Rules.saveDeletesFirst) {
        // Between the delete of the old file and the end of the new one lies the host's only copy.
        const HoldTermination hold;
        DIBSave.Save_BMP(file, Canvas.DIB, DIBPal, DIBDither.get(), BPP);
    } else {
        writeAside(file);
    }
    Saved = true;
    LastFilename = file;
    pvRefreshFileCaption();
}

/// No desktop has the dialog, and each says so: there is never an answer to save by.
void fMain::pvSaveAs() {
    m_desktop.windows->askForFile(*this,
                                  {.title = "Save as", .fileName = LastFilename, .filter = kSaveTypes});
}

/// For a host that wants the picture in a file of its own: whole or not at all.
void fMain::writeResult() {
    const auto path = environmentValue("MOBREL_RESULT");
    if (!path || path->empty()) return;
    if (!skipErrors([&] { writeAside(*path); })) {
        m_desktop.windows->message("The picture could not be written to " + *path, MessageIcon::Exclamation,
                                   MessageButtons::Ok);
    }
}

/// Nothing without a picture.
void fMain::writeAside(const std::string& path) {
    if (Canvas.DIB.hDIB() == nullptr) return;
    replaceFile(path, [&](FileWriter& writer) {
        DIBSave.Write_BMP(writer, Canvas.DIB, DIBPal, DIBDither.get(), BPP);
    });
}

/// Null, after a message, when no picture came back.
std::unique_ptr<StdPicture> fMain::pvLoadPictureFile(const std::string& path) {
    std::unique_ptr<StdPicture> picture;
    if (equalIgnoringCase(pvFileType(path), "png")) {
        picture = LoadPictureGDIp(path);
    } else {
        skipErrors([&] { picture = readPictureFile(path); });
    }
    if (!picture) {
        m_desktop.windows->message("Unexpected error loading image", MessageIcon::Exclamation,
                                   MessageButtons::Ok);
    }
    return picture;
}

/// Whether a paste may replace the document.
bool fMain::isPasteAllowed() {
    const bool isChanged = Canvas.DIB.hDIB() != nullptr && m_undoPos > 1 && !Saved;
    if (!isChanged) return true;
    const MessageAnswer answer = m_desktop.windows->message(
        "Save changes before Paste ?", MessageIcon::Question, MessageButtons::YesNoCancel);
    if (answer == MessageAnswer::Yes) mnuFiles(1);
    return answer != MessageAnswer::Cancel;
}

void fMain::pvPaste() {
    if (!m_desktop.clipboard->hasPicture() || !isPasteAllowed()) return;
    auto picture = m_desktop.clipboard->picture();
    if (!picture) return;
    pvSetPicture(std::move(picture));
    pvClearUndoFiles();
    pvSaveUndoDIB();
    LastFilename = kUnnamed;
    pvRefreshFileCaption();
}

void fMain::pvSetPicture(std::unique_ptr<StdPicture> picture) {
    if (!picture) return;
    const auto sizeBefore = std::pair(Canvas.DIB.Width(), Canvas.DIB.Height());
    DIBPal.Clear();
    BPP = static_cast<std::uint8_t>(
        Canvas.DIB.CreateFromStdPicture(std::move(picture), DIBPal, DIBDither.get()));
    Views.tell(&DocumentView::depthChanged);
    Canvas.RemoveCropRectangle();
    if (std::pair(Canvas.DIB.Width(), Canvas.DIB.Height()) == sizeBefore) {
        Canvas.Repaint();
    } else {
        Canvas.Resize();
    }
    Views.tell(&DocumentView::pictureChanged);
    Progress.setMax(Canvas.DIB.Height());
    refreshInfo();
    Info.setTextZoom(std::to_string(Canvas.Zoom()) + "00%");
}

void fMain::pvRefreshFileCaption() {
    Info.setTextFile(LastFilename);
    Views.tell(&DocumentView::captionChanged);
}

void fMain::refreshInfo() {
    Info.setTextInfo(std::to_string(Canvas.DIB.Width()) + "x" + std::to_string(Canvas.DIB.Height()) + "x" +
                     std::to_string(BPP) + "bpp");
    Views.tell(&DocumentView::captionChanged);
}

}  // namespace mobrel
