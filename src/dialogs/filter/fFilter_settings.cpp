// SPDX-License-Identifier: MIT
// What a person sets in the dialog, and what shows then.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include "desktop/QtValues.hpp"
#include "dialogs/common/Connections.hpp"
#include "dialogs/filter/fFilter.hpp"
#include "dialogs/pickers/mChooseColor.hpp"
#include "shell/fMain.hpp"

namespace mobrel {

namespace {

constexpr std::int32_t kGreatestZoom = 10;

void showNow(QLabel& label, const QString& text) {
    label.setText(text);
    label.repaint();
}

}  // namespace

void fFilter::connectControls() {
    onClick(m_form.Image1, this, [this] { done(Rejected); });
    onClick(m_form.cmdPreview, this, [this] { cmdPreviewClicked(); });
    onClick(m_form.cmdApply, this, [this] { cmdApplyClicked(); });
    onClick(m_form.cmdClose, this, [this] { done(Rejected); });
    onClick(m_form.cmdZoomIn, this, [this] { zoom(1); });
    onClick(m_form.cmdZoomOut, this, [this] { zoom(-1); });
    onClick(m_form.CommandUndo, this, [this] { commandClicked(&fMain::Undo); });
    onClick(m_form.CommandRedo, this, [this] { commandClicked(&fMain::Redo); });
    onToggle(m_form.chkFit, this, [this] { fitClicked(); });
    onToggle(m_form.chkPickColor, this, [this] {
        before().setWorkMode(m_form.chkPickColor->isChecked() ? ucCanvas::kPickColorMode
                                                              : ucCanvas::kScrollMode);
    });
    connectToCore(m_form.cbFilter, &QComboBox::activated, this, [this] { listClicked(); });
    for (std::size_t i = 0; i < m_form.lblColor.size(); ++i)
        onClick(m_form.lblColor[i], this, [this, i] { colorClicked(i); });
    for (std::size_t i = 0; i < m_form.sbParam.size(); ++i)
        m_form.sbParam[i]->owned().ValueChanged.connect([this, i] { sliderChanged(i); });
    const auto pick = [this](std::int16_t button, std::int16_t, std::int32_t x, std::int32_t y) {
        pickColor(button, x, y);
    };
    before().setLargestWheelZoom(kGreatestZoom);
    before().MouseDown.connect(pick);
    before().MouseMove.connect(pick);
    m_form.iAft->owned().Resized.connect([this] {
        if (!m_isInitialized || isUnloaded()) return;
        fitAfter();
        showAfter();
    });
}

std::size_t fFilter::sliderCount() const {
    const auto& sliders = entry().sliders;
    return static_cast<std::size_t>(
        std::ranges::count_if(sliders, [](const FilterSlider& slider) { return !slider.caption.empty(); }));
}

void fFilter::SetupParams(Reset reset) {
    if (reset == Reset::Yes) {
        const QPointer<QWidget> keyboard = focusWidget();
        ParamsReady = false;
        m_form.fraParams->hide();
        for (QWidget* const row : m_form.fraParam) row->hide();
        m_form.fraColorSelection->hide();
        for (std::size_t i = 0; i < sliderCount(); ++i) SetParam(i, entry().sliders[i]);
        if (entry().colors == FilterColors::FromAndTo) ShowColors(-1);
        if (entry().colors == FilterColors::From) ShowColors(1);
        ParamsReady = true;
        m_form.fraParams->show();
        if (keyboard && keyboard->isVisibleTo(this)) keyboard->setFocus();  // hiding has taken it away
    }
    showAfter();
}

void fFilter::SetParam(std::size_t Index, const FilterSlider& slider) {
    const QString caption = qtText(slider.caption);
    m_form.lblParamName[Index]->setText(caption);
    m_form.sbParam[Index]->setAccessibleName(caption);
    zenSlider& control = m_form.sbParam[Index]->owned();
    control.setMin(slider.least);
    control.setMax(slider.greatest);
    control.setValue(slider.preset);
    control.setOrientation(SliderOrientation::Horizontal);  // a range alone leaves the knob at another value
    m_form.placeSliders(Index + 1);
    for (std::size_t i = 0; i <= Index; ++i) m_form.fraParam[i]->show();
}

void fFilter::ShowColors(int HideIndex) {
    for (std::size_t i = 0; i < m_form.lblColor.size(); ++i) {
        const bool isShown = static_cast<int>(i) != HideIndex;
        m_form.lblColor[i]->setBackColor(0);
        m_form.lblColor[i]->setVisible(isShown);
        m_form.lblColorT[i]->setVisible(isShown);
    }
    m_form.fraColorSelection->show();
}

/// Enter does what comes next, and the keyboard goes there from a button that cannot be pressed any more.
void fFilter::setCommands(bool preview, bool apply) {
    const bool isOnCommand = m_form.cmdPreview == focusWidget() || m_form.cmdApply == focusWidget();
    QPushButton* const next = apply ? m_form.cmdApply : m_form.cmdPreview;
    next->setEnabled(apply || preview);
    if (isOnCommand) next->setFocus();
    m_form.cmdPreview->setEnabled(preview);
    m_form.cmdApply->setEnabled(apply);
    next->setDefault(true);
}

void fFilter::offerPreview() {
    setCommands(FilterID >= 1, false);
}

void fFilter::listClicked() {
    FilterID = static_cast<std::int16_t>(m_form.cbFilter->currentIndex());
    SetupParams(Reset::Yes);
    offerPreview();
    main().LastFilterID = FilterID;
}

void fFilter::sliderChanged(std::size_t index) {
    showNow(*m_form.lblParamValue[index], QString::number(m_form.sbParam[index]->owned().Value()));
    parametersChanged();
}

void fFilter::parametersChanged() {
    showAfter();
    offerPreview();
}

void fFilter::colorClicked(std::size_t index) {
    ColorLabel& label = *m_form.lblColor[index];
    const std::int32_t color = ChooseColorEx(this, label.BackColor(), true);
    if (color != -1) label.setBackColor(static_cast<Color>(color));
    parametersChanged();
}

/// The left button picks the colour to change from, any other the one to change to. A pointer that passes by
/// without a button changes nothing.
void fFilter::pickColor(std::int16_t button, std::int32_t x, std::int32_t y) {
    if (!m_form.chkPickColor->isChecked() || button == MouseButton::kNone) return;
    ColorLabel& label = *m_form.lblColor[button == MouseButton::kLeft ? 0 : 1];
    const DeviceContext* const picture = before().DIB.hDIBDC();
    const std::int32_t color = picture != nullptr ? picture->GetPixel(x, y) : -1;
    if (label.isVisibleTo(this)) label.setBackColor(static_cast<Color>(std::max(color, 0)));
    ColorLabel& to = *m_form.lblColor[1];
    if (m_form.chkLock->isChecked() && to.isVisibleTo(this)) to.setBackColor(m_form.lblColor[0]->BackColor());
    parametersChanged();
}

void fFilter::fitClicked() {
    const bool isFitted = m_form.chkFit->isChecked();
    before().setFitMode(isFitted);
    before().Resize();
    m_form.cmdZoomIn->setEnabled(!isFitted);
    m_form.cmdZoomOut->setEnabled(!isFitted);
}

void fFilter::zoom(int steps) {
    if (steps < 0 || before().Zoom() < kGreatestZoom) before().setZoom(before().Zoom() + steps);
    before().Resize();
}

/// kept: all but the commands, whatever state they had.
void fFilter::enableControls(bool enabled) {
    for (QWidget* const control : m_form.parameterControls()) control->setEnabled(enabled);
    before().setEnabled(enabled);
    for (auto* const slider : m_form.sbParam) slider->owned().setEnabled(enabled);
}

}  // namespace mobrel
