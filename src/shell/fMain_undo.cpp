// SPDX-License-Identifier: MIT
// The undo store: whole-picture snapshots on disk.
#include <array>
#include <cstdio>

#include "platform/pictures/PictureReader.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/Process.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

namespace {

/// Steps that are kept. Snapshot number kSteps exists only until the oldest has been dropped.
constexpr std::int32_t kSteps = 25;
constexpr const char* kSuffix = ".dat";

std::string undoPrefix(std::int32_t handle) {
    return "b" + std::to_string(handle);
}

}  // namespace

std::string fMain::undoFile(std::int32_t number) const {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%03d", static_cast<int>(number));
    return joinPath(m_tempPath, undoPrefix(m_undoHandle) + digits.data() + kSuffix);
}

void fMain::watchUndoFiles() const {
    deleteOnTermination(joinPath(m_tempPath, undoPrefix(m_undoHandle)), kSteps + 1, kSuffix);
}

void fMain::pvSaveUndoDIB() {
    skipErrors([&] {
        DIBSave.Save_Private_BMP(undoFile(m_undoPos), Canvas.DIB, DIBPal, DIBDither.get(), BPP);
        Saved = false;
        for (std::int32_t i = m_undoPos + 1; i <= m_undoTop; ++i) deleteFileIfPossible(undoFile(i));
        if (m_undoPos >= kSteps) {
            pvShiftUndoFiles();
        } else {
            m_undoTop = ++m_undoPos;
        }
        CheckUndoRedoState();
    });
}

void fMain::Undo() {
    skipErrors([&] {
        if (m_undoPos > 1) {
            loadUndoFile(m_undoPos - 2);
            --m_undoPos;
        }
        CheckUndoRedoState();
    });
}

void fMain::Redo() {
    skipErrors([&] {
        if (m_undoPos < m_undoTop) {
            loadUndoFile(m_undoPos);
            ++m_undoPos;
        }
        CheckUndoRedoState();
    });
}

void fMain::loadUndoFile(std::int32_t number) {
    pvSetPicture(readPictureFile(undoFile(number)));
}

void fMain::CheckUndoRedoState() {
    Views.tell(&DocumentView::historyChanged, m_undoPos > 1, m_undoPos < m_undoTop);
}

void fMain::pvShiftUndoFiles() {
    deleteFileIfPossible(undoFile(0));
    for (std::int32_t i = 1; i <= kSteps; ++i) renameFileIfPossible(undoFile(i), undoFile(i - 1));
}

void fMain::pvClearUndoFiles() {
    deleteMatchingFiles(m_tempPath, undoPrefix(m_undoHandle), 3, kSuffix);
    m_undoPos = 0;
    m_undoTop = 0;
}

}  // namespace mobrel
