// SPDX-License-Identifier: MIT
// The commands of the main window, by their place in a menu.
#include "imaging/ColourDepth.hpp"
#include "platform/base/RuntimeError.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

void fMain::mnuFiles(int Index) {
    runCommand([&] {
        switch (Index) {
            case 0:
                pvOpen();
                break;
            case 1:
                pvSave();
                break;
            case 2:
                pvSaveAs();
                break;
            case 6:
                Unload();
                break;
            default:
                break;
        }
    });
}

void fMain::mnuEdits(int Index) {
    runCommand([&] {
        switch (Index) {
            case 0:
                Undo();
                break;
            case 1:
                Redo();
                break;
            case 3:
                Canvas.DIB.CopyToClipboard(*m_desktop.clipboard);
                break;
            case 4:
                pvPaste();
                break;
            default:
                break;
        }
    });
}

void fMain::mnuColorsz(int Index) {
    if (!DIBDither) throw RuntimeError(ErrorNumber::ObjectNotSet);  // no command comes before Load
    changeDepth(DepthCommand{Index}, {Canvas.DIB, DIBPal, *DIBDither, BPP},
                [this](bool on) { setHourglass(on); });
    Views.tell(&DocumentView::depthChanged);
    refreshInfo();
    Canvas.Repaint();
}

void fMain::mnuColorFilters(int Index) {
    switch (Index) {
        case 0:
            filter().Greys(Canvas.DIB);
            break;
        case 1:
            filter().Negative(Canvas.DIB);
            break;
        case 2:
            filter().Colorize(Canvas.DIB, 0.5F, 0.25F, 1.0F);
            break;
        default:
            return;
    }
    Canvas.Repaint();
}

void fMain::mnuDefinitions(int Index) {
    switch (Index) {
        case 7:
            filter().Despeckle(Canvas.DIB);
            break;
        default:
            return;
    }
    Canvas.Repaint();
}

/// Error 91 before Load has made it and after Unload.
cDIBFilter& fMain::filter() const {
    if (!DIBFilter) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return *DIBFilter;
}

}  // namespace mobrel
