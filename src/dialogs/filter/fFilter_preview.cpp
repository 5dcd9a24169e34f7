// SPDX-License-Identifier: MIT
// What a filter would do, on the reduced copy and on the document, and what makes it last.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "dialogs/filter/fFilter.hpp"
#include "shell/fMain.hpp"
#include "shell/mINI.hpp"

namespace mobrel {

namespace {

/// Beyond it no depth command's palette is left.
constexpr int kDeepestPalette = 8;

}  // namespace

/// While the reduced copy is filtered, the status bar stays quiet.
void fFilter::connectFilter() {
    DIBAftPreview.Progress.connect([this](std::int32_t value) {
        if (Previewing()) main().DIBFilter_Progress(value);
    });
    DIBAftPreview.ProgressEnd.connect([this] {
        if (Previewing()) main().DIBFilter_ProgressEnd();
    });
}

void fFilter::takeDocument() {
    m_preview.takeDocument();
    before().Resize();
}

void fFilter::fitAfter() {
    const PicturePane& pane = m_form.iAft->owned();
    m_preview.fitAfter(pane.width(), pane.height());
}

void fFilter::showAfter() {
    m_preview.makeAfter([this](cDIB& copy) { ApplyFilter(copy); });
    m_form.iAft->owned().show(m_preview.after(), m_preview.afterLeft(), m_preview.afterTop());
}

void fFilter::ApplyFilter(cDIB& target) {
    if (!ParamsReady) return;
    FilterValues values;
    for (std::size_t i = 0; i < kFilterSliders; ++i) values.sliders[i] = m_form.sbParam[i]->owned().Value();
    values.from = m_form.lblColor[0]->BackColor();
    values.to = m_form.lblColor[1]->BackColor();
    entry().apply(DIBAftPreview, target, values);
}

void fFilter::cmdPreviewClicked() {
    main().setHourglass(true);
    m_preview.tryOnDocument([this](cDIB& document) { ApplyFilter(document); });
    if (m_form.chkResetValues->isChecked()) SetupParams(Reset::Yes);
    setCommands(false, true);
    main().setHourglass(false);
    m_form.Info1->show();
}

void fFilter::cmdApplyClicked() {
    writeWinState();
    main().DIBFilter_ProgressEnd();
    if (m_form.chkNoClose->isChecked()) {
        m_preview.acceptDocument();
        before().Repaint();
        SetupParams(Reset::No);
        setCommands(true, false);
        return;
    }
    m_form.cmdApply->setEnabled(false);  // nothing is left to take back
    const bool isEndOfRun = main().Rules.dialogEndsRun;
    done(Accepted);
    if (!isEndOfRun) return;
    // kept: Global() makes another main window, without a file, so that this Save is a fatal error. The
    // result is on the clipboard, and temp.bmp stays as it was.
    fMain::Global().mnuFiles(1);
    fMain::Global().Unload();
}

void fFilter::commandClicked(void (fMain::*command)()) {
    (main().*command)();
    takeDocument();
    SetupParams(Reset::Yes);
    const bool isPalette = main().BPP <= kDeepestPalette;
    enableControls(!isPalette);
    setCommands(FilterID >= 1 && !isPalette, false);
}

}  // namespace mobrel
