// SPDX-License-Identifier: MIT
// The dialog's life, and the two roads of a preview.
#include "dialogs/filter/fFilter.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <utility>

#include "desktop/Boundary.hpp"
#include "desktop/QtDesktop.hpp"
#include "dialogs/common/DialogParts.hpp"
#include "platform/base/RuntimeError.hpp"
#include "shell/fMain.hpp"
#include "shell/mINI.hpp"
#include "shell/mSettings.hpp"

namespace mobrel {

namespace {

// Design pixels.
constexpr int kWidth = 620;
constexpr int kHeight = 470;
constexpr double kTwipsPerPixel = 15;

void setHourglass(bool on) {
    qtDesktop().windows->setHourglass(on);
}

void setCheckBox(QCheckBox& box, std::int16_t value) {
    if (value < 0 || value > 2) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    box.setChecked(value != 0);
}

}  // namespace

fFilter::fFilter() : m_form(*this) {
    setWindowTitle("Filter");
    setWindowFlag(Qt::WindowStaysOnTopHint);
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - likelyFrame(*this);
    m_form.fitHeight(room.height());
    resize((QSizeF(kWidth, kHeight) * designUnit(*this)).toSize().boundedTo(room));
    connectControls();
    loadSettings();
    connectFilter();
    fMain::Global().setDialog(this);
    fMain::Global().CheckUndoRedoState();
}

fFilter::~fFilter() {
    if (!m_isUnloaded) fMain::Global().setDialog(nullptr);
}

void fFilter::loadSettings() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize outerSize = size() + likelyFrame(*this);
    const QPoint centred = screen.center() - QRect(QPoint(), outerSize).center();
    const FilterSettings settings =
        LoadFilterSettings({.Top = static_cast<float>(centred.y() * kTwipsPerPixel),
                            .Left = static_cast<float>(centred.x() * kTwipsPerPixel)});
    move(reachablePlace(QPointF(settings.place.Left, settings.place.Top) / kTwipsPerPixel, outerSize));
    setCheckBox(*m_form.chkFit, settings.BeforeFit);
    setCheckBox(*m_form.chkPickColor, settings.BeforePickColor);
    setCheckBox(*m_form.chkResetValues, settings.ResetValues);
    setCheckBox(*m_form.chkNoClose, settings.NoClose);
}

/// While the reduced copy is filtered, the status bar stays quiet.
void fFilter::connectFilter() {
    DIBAftPreview.Progress.connect([this](std::int32_t value) {
        if (m_previewing) fMain::Global().DIBFilter_Progress(value);
    });
    DIBAftPreview.ProgressEnd.connect([this] {
        if (m_previewing) fMain::Global().DIBFilter_ProgressEnd();
    });
}

void fFilter::Initialize(int id) {
    ensurePolished();
    layout()->activate();
    takeDocument();
    m_isInitialized = true;
    fitAfter();
    if (id == 0) AfterDIB.LoadDIBBlt(before().DIB);
    if (id < 0 || id >= m_form.cbFilter->count()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_form.cbFilter->setCurrentIndex(id);
    listClicked();
}

void fFilter::takeDocument() {
    const cDIB& document = fMain::Global().Canvas.DIB;
    before().DIB.Create(document.Width(), document.Height(), 0);
    if (document.hDIBDC() != nullptr) before().DIB.LoadBlt(*document.hDIBDC());
    before().Resize();
}

void fFilter::restoreDocument() {
    if (before().DIB.hDIBDC() != nullptr) fMain::Global().Canvas.DIB.LoadBlt(*before().DIB.hDIBDC());
}

void fFilter::fitAfter() {
    const PicturePane& pane = m_form.iAft->owned();
    const BestFitInfo fit = before().DIB.GetBestFitInfo(pane.width(), pane.height());
    AfterLeft = fit.bfx;
    AfterTop = fit.bfy;
    AfterWidth = fit.bfW;
    AfterHeight = fit.bfH;
    AfterDIB.Create(AfterWidth, AfterHeight, 0);
}

void fFilter::showAfter() {
    m_form.iAft->owned().show(AfterDIB, AfterLeft, AfterTop);
}

void fFilter::showSmallRoad() {
    AfterDIB.LoadDIBBlt(before().DIB);
    ApplyFilter(AfterDIB);
    showAfter();
}

void fFilter::cmdPreviewClicked() {
    cDIB& document = fMain::Global().Canvas.DIB;
    setHourglass(true);
    m_previewing = true;
    restoreDocument();
    ApplyFilter(document);
    fMain::Global().Canvas.Repaint();
    m_previewing = false;
    if (m_form.chkResetValues->isChecked()) SetupParams(Reset::Yes);
    setCommands(false, true);
    setHourglass(false);
    m_form.Info1->show();
}

void fFilter::cmdApplyClicked() {
    writeWinState();
    fMain::Global().DIBFilter_ProgressEnd();
    if (m_form.chkNoClose->isChecked()) {
        const cDIB& document = fMain::Global().Canvas.DIB;
        if (document.hDIBDC() != nullptr) before().DIB.LoadBlt(*document.hDIBDC());
        before().Repaint();
        SetupParams(Reset::No);
        setCommands(true, false);
        return;
    }
    m_form.cmdApply->setEnabled(false);  // nothing is left to take back
    done(Accepted);
    // kept: the main window is another one now, without a file, so that this Save is a fatal error. The
    // result is on the clipboard, and temp.bmp stays as it was.
    fMain::Global().mnuFiles(1);
    fMain::Global().Unload();
}

void fFilter::cmdCloseClicked() {
    done(Rejected);
    fMain::Global().Unload();
}

void fFilter::done(int result) {
    enterCore([this] { unload(); });
    QDialog::done(result);
}

void fFilter::unload() {
    if (std::exchange(m_isUnloaded, true)) return;
    fMain& main = fMain::Global();
    if (m_form.cmdApply->isEnabled()) {
        restoreDocument();
        main.Canvas.Repaint();
    }
    before().DIB.Destroy();
    AfterDIB.Destroy();
    main.setDialog(nullptr);
    main.Unload();
    setHourglass(false);
}

void fFilter::showEvent(QShowEvent* event) {
    setHourglass(false);
    QDialog::showEvent(event);
}

void fFilter::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    m_form.fitDropDown(*this);
    m_form.placeSliders(sliderCount());
}

}  // namespace mobrel
