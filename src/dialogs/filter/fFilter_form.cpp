// SPDX-License-Identifier: MIT
#include "dialogs/filter/fFilter_form.hpp"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QToolButton>

#include "desktop/QtValues.hpp"
#include "dialogs/common/FormParts.hpp"

namespace mobrel {

namespace {

// Design pixels.
constexpr int kMargin = 8;
constexpr int kGap = 6;
/// Panes are at least so large that the etched line stands at 195, and that the tools of one fit below it.
constexpr int kLeastPaneWidth = 250;
constexpr int kLeastPaneHeight = 129;
constexpr int kParametersHeight = 104;
constexpr int kParameterHeight = 20;

}  // namespace

FilterForm::FilterForm(QDialog& dialog) : m_dialog(dialog), m_unit(designUnit(dialog)) {
    auto* const all = new QVBoxLayout(&dialog);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(makeHeader());
    auto* const contents = new QVBoxLayout;
    contents->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    contents->setSpacing(kGap);
    contents->addLayout(makePanes(), 1);
    contents->addWidget(new EtchedLine);
    contents->addLayout(makeSettings());
    contents->addLayout(makeButtons());
    all->addLayout(contents);
    orderTabs();
}

/// From the list through what is set to the commands; the tools of the panes come last.
void FilterForm::orderTabs() {
    std::vector<QWidget*> order = {cbFilter};
    order.insert(order.end(), sbParam.begin(), sbParam.end());
    order.insert(order.end(), lblColor.begin(), lblColor.end());
    for (QWidget* const next : std::initializer_list<QWidget*>{
             chkResetValues, chkNoClose, cmdPreview, cmdApply, cmdClose, chkFit, cmdZoomIn, cmdZoomOut,
             chkPickColor, chkLock, CommandUndo, CommandRedo})
        order.push_back(next);
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
    cbFilter->setFocus();
}

int FilterForm::units(double designPixels) const {
    return qRound(designPixels * m_unit);
}

QWidget* FilterForm::makeHeader() {
    auto* const header = new MoveArea;
    header->setAutoFillBackground(true);
    header->setBackgroundRole(QPalette::Base);
    auto* const layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 2, 4, 2);
    Label1 = named("Label1", new QLabel("  Adjust"));
    QFont font = Label1->font();
    font.setBold(true);
    Label1->setFont(font);
    Image1 = named("Image1", iconButton<QToolButton>("close", "Close dialog"));
    Image1->setAutoRaise(true);
    Image1->setFocusPolicy(Qt::NoFocus);  // Escape does the same
    layout->addWidget(Label1, 1);
    layout->addWidget(Image1);
    return header;
}

QLayout* FilterForm::makePanes() {
    iBfrCanvas = named("iBfrCanvas", new OwningControlWidget<ucCanvas>);
    iBfrCanvas->setAccessibleName("Before");
    iAft = named("iAft", new OwningControlWidget<PicturePane>);
    iAft->setAccessibleName("After");
    for (QWidget* const pane : std::initializer_list<QWidget*>{iBfrCanvas, iAft})
        pane->setFocusPolicy(Qt::NoFocus);  // no key means anything there
    m_paneFrames = {framed(iBfrCanvas), framed(iAft)};
    auto* const grid = new QGridLayout;
    grid->setSpacing(kGap);
    for (std::size_t i = 0; i < m_paneFrames.size(); ++i) {
        m_paneFrames[i]->setMinimumSize(units(kLeastPaneWidth), units(kLeastPaneHeight));
        grid->addWidget(m_paneFrames[i], 0, static_cast<int>(i));
    }
    grid->addLayout(makeBeforeTools(), 1, 0);
    grid->addLayout(makeCommand(), 1, 1);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* FilterForm::makeBeforeTools() {
    chkFit = named("chkFit", new QCheckBox("Fit"));
    cmdZoomIn = named("cmdZoomIn", iconButton<QPushButton>("zoom-in", "Zoom in"));
    cmdZoomOut = named("cmdZoomOut", iconButton<QPushButton>("zoom-out", "Zoom out"));
    for (QPushButton* const button : {cmdZoomIn, cmdZoomOut}) button->setAutoDefault(false);
    chkPickColor = named("chkPickColor", new QCheckBox("Pick color"));
    chkLock = named("chkLock", new QCheckBox("Lock:"));
    chkLock->setLayoutDirection(Qt::RightToLeft);  // the box stands behind the colon
    chkLock->setAccessibleName("Lock");
    chkLock->setToolTip("The second color follows the first");
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(chkFit);
    row->addWidget(cmdZoomIn);
    row->addWidget(cmdZoomOut);
    row->addStretch();
    row->addWidget(chkPickColor);
    row->addSpacing(kGap);
    row->addWidget(chkLock);
    return row;
}

QLayout* FilterForm::makeCommand() {
    CommandUndo = named("Undo", iconButton<QToolButton>("undo", "Undo"));
    CommandRedo = named("Redo", iconButton<QToolButton>("redo", "Redo"));
    auto* const row = new QHBoxLayout;
    row->setSpacing(2);
    row->addStretch();
    for (QToolButton* const button : {CommandUndo, CommandRedo}) {
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        row->addWidget(button);
    }
    return row;
}

QLayout* FilterForm::makeSettings() {
    lblComboFilter = named("lblComboFilter", new QLabel("Filter"));
    cbFilter = named("cbFilter", new QComboBox);
    cbFilter->setStyleSheet("QComboBox { combobox-popup: 0; }");  // a list below, not a menu over it
    cbFilter->setView(new QListView(cbFilter));
    cbFilter->view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    for (const FilterTableEntry& entry : kFilterTable) cbFilter->addItem(qtText(entry.caption));
    lblComboFilter->setBuddy(cbFilter);

    auto* const choice = new QHBoxLayout;
    choice->setSpacing(kGap);
    choice->addWidget(lblComboFilter);
    choice->addWidget(cbFilter, 1);
    auto* const left = new QVBoxLayout;
    left->setSpacing(kGap);
    left->addLayout(choice);
    left->addWidget(makeParameters());

    chkResetValues = named("chkResetValues", new QCheckBox("&Reset values after preview"));
    chkNoClose = named("chkNoClose", new QCheckBox("&Don't close dialog after apply"));
    auto* const right = new QVBoxLayout;
    right->setSpacing(kGap);
    right->addWidget(makeColorSelection());
    right->addStretch();
    right->addWidget(chkResetValues);
    right->addWidget(chkNoClose);

    auto* const both = new QHBoxLayout;
    both->setSpacing(3 * kGap);
    both->addLayout(left, 1);
    both->addLayout(right);
    return both;
}

QWidget* FilterForm::makeParameters() {
    fraParams = named("fraParams", new QFrame);
    fraParams->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    fraParams->setFixedHeight(units(kParametersHeight));
    keepPlace(*fraParams);
    for (std::size_t i = 0; i < kFilterSliders; ++i) makeParameter(i);
    return fraParams;
}

QWidget* FilterForm::makeParameter(std::size_t index) {
    QWidget* const row = fraParam[index] = new QWidget(fraParams);
    row->setObjectName(indexed("fraParam", index));
    lblParamName[index] = new QLabel;
    lblParamName[index]->setObjectName(indexed("lblParamName", index));
    sbParam[index] = new OwningControlWidget<zenSlider>;
    sbParam[index]->setObjectName(indexed("sbParam", index));
    sbParam[index]->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    sbParam[index]->owned().setOrientation(SliderOrientation::Horizontal);
    lblParamValue[index] = new QLabel("0");
    lblParamValue[index]->setObjectName(indexed("lblParamValue", index));
    lblParamValue[index]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    const QFontMetrics metrics = row->fontMetrics();
    lblParamName[index]->setFixedWidth(metrics.horizontalAdvance("Horizontal factor "));
    lblParamValue[index]->setFixedWidth(metrics.horizontalAdvance("-255 "));
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addWidget(lblParamName[index]);
    layout->addWidget(sbParam[index], 1);
    layout->addWidget(lblParamValue[index]);
    return row;
}

QWidget* FilterForm::makeColorSelection() {
    fraColorSelection = named("fraColorSelection", new QWidget);
    keepPlace(*fraColorSelection);
    auto* const grid = new QGridLayout(fraColorSelection);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kGap);
    constexpr std::array kCaptions = {"From color", "To color"};
    for (std::size_t i = 0; i < lblColor.size(); ++i) {
        lblColorT[i] = new QLabel(kCaptions[i]);
        lblColorT[i]->setObjectName(indexed("lblColorT", i));
        lblColor[i] = new ColorLabel;
        lblColor[i]->setObjectName(indexed("lblColor", i));
        lblColor[i]->setAccessibleName(kCaptions[i]);
        keepPlace(*lblColorT[i]);
        keepPlace(*lblColor[i]);
        grid->addWidget(lblColorT[i], static_cast<int>(i), 0);
        grid->addWidget(lblColor[i], static_cast<int>(i), 1);
    }
    grid->setColumnStretch(2, 1);
    return fraColorSelection;
}

QLayout* FilterForm::makeButtons() {
    Info1 = named("Info1",
                  new QLabel("Click Preview button, and click Apply button, and click view area in main."));
    Info1->setWordWrap(true);
    keepTwoLines(*Info1);
    Info1->hide();
    keepPlace(*Info1);
    cmdPreview = named("cmdPreview", new QPushButton("&Preview"));
    cmdPreview->setToolTip("Can't Preview in main");
    cmdApply = named("cmdApply", new QPushButton("&Apply"));
    cmdApply->setToolTip("Apply last preview [and Close dialog]");
    cmdClose = named("cmdClose", new QPushButton("&Close"));
    cmdClose->setToolTip("[Cancel last apply and] Close dialog");
    auto* const row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(Info1, 1);
    for (QPushButton* const button : {cmdPreview, cmdApply, cmdClose}) row->addWidget(button);
    return row;
}

std::vector<QWidget*> FilterForm::parameterControls() const {
    std::vector<QWidget*> controls = {
        Label1,       Image1,  iBfrCanvas,     iAft,     chkFit,    cmdZoomIn,         cmdZoomOut,
        chkPickColor, chkLock, lblComboFilter, cbFilter, fraParams, fraColorSelection, chkResetValues,
        chkNoClose,   Info1};
    controls.insert(controls.end(), fraParam.begin(), fraParam.end());
    controls.insert(controls.end(), lblParamName.begin(), lblParamName.end());
    controls.insert(controls.end(), sbParam.begin(), sbParam.end());
    controls.insert(controls.end(), lblParamValue.begin(), lblParamValue.end());
    controls.insert(controls.end(), lblColorT.begin(), lblColorT.end());
    controls.insert(controls.end(), lblColor.begin(), lblColor.end());
    return controls;
}

void FilterForm::placeSliders(std::size_t count) {
    static constexpr std::array<std::array<int, kFilterSliders>, kFilterSliders> kTops = {
        {{42}, {29, 51}, {20, 42, 64}}};
    for (std::size_t i = 0; i < count; ++i) {
        fraParam[i]->setGeometry(kMargin, units(kTops[count - 1][i]), fraParams->width() - 2 * kMargin,
                                 units(kParameterHeight));
    }
}

void FilterForm::fitHeight(int height) {
    const int missing = m_dialog.minimumSizeHint().height() - height;
    if (missing <= 0) return;
    for (QFrame* const frame : m_paneFrames)
        frame->setMinimumHeight(std::max(1, frame->minimumHeight() - missing));
}

void FilterForm::fitDropDown(const QDialog& dialog) {
    const int top = cbFilter->mapTo(&dialog, QPoint(0, cbFilter->height())).y();
    const int row = std::max(cbFilter->view()->sizeHintForRow(0), 1);
    cbFilter->setMaxVisibleItems(std::max(1, (dialog.height() - top) / row));
}

}  // namespace mobrel
