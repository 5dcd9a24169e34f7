// SPDX-License-Identifier: MIT
// The dialog's life.
#include "dialogs/filter/fFilter.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QLayout>
#include <QPushButton>
#include <QToolButton>

#include "platform/base/RuntimeError.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

namespace {

/// In design pixels.
constexpr QSize kDesignedSize(620, 470);

void setCheckBox(QCheckBox& box, std::int16_t value) {
    if (value < 0 || value > 2) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    box.setChecked(value != 0);
}

}  // namespace

fFilter::fFilter(fMain& main, QWidget* parent)
    : DialogFrame(main, parent), m_form(*this), m_preview(main, before().DIB) {
    setWindowTitle("Filter");
    setWindowFlag(Qt::WindowStaysOnTopHint);
    m_form.fitHeight(roomOnScreen().height());
    resizeToDesign(kDesignedSize);
    connectControls();
    loadSettings();
    connectFilter();
    main.Views.add(*this);
    main.CheckUndoRedoState();
}

fFilter::~fFilter() {
    main().Views.remove(*this);
}

void fFilter::loadSettings() {
    const FilterSettings settings = LoadFilterSettings(centredCorner());
    moveToReachable(settings.place);
    setCheckBox(*m_form.chkFit, settings.BeforeFit);
    setCheckBox(*m_form.chkPickColor, settings.BeforePickColor);
    setCheckBox(*m_form.chkResetValues, settings.ResetValues);
    setCheckBox(*m_form.chkNoClose, settings.NoClose);
}

void fFilter::Initialize(int id) {
    ensurePolished();
    layout()->activate();
    takeDocument();
    m_isInitialized = true;
    fitAfter();
    if (id < 0 || id >= m_form.cbFilter->count()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_form.cbFilter->setCurrentIndex(id);
    listClicked();
}

void fFilter::unload() {
    if (m_form.cmdApply->isEnabled()) m_preview.restoreDocument();
    m_preview.release();
    main().Views.remove(*this);
    if (main().Rules.dialogEndsRun) main().Unload();
    main().setHourglass(false);
}

void fFilter::historyChanged(bool undo, bool redo) {
    m_form.CommandUndo->setEnabled(undo);
    m_form.CommandRedo->setEnabled(redo);
}

void fFilter::resizeEvent(QResizeEvent* event) {
    DialogFrame::resizeEvent(event);
    m_form.fitDropDown(*this);
    m_form.placeSliders(sliderCount());
}

}  // namespace mobrel
