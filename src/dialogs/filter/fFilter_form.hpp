// SPDX-License-Identifier: MIT
// The widgets of the filter dialog, and where they stand.
#pragma once

#include <array>
#include <vector>

#include "canvas/PicturePane.hpp"
#include "canvas/ucCanvas.hpp"
#include "controls/zenSlider.hpp"
#include "desktop/OwningControlWidget.hpp"
#include "dialogs/common/ColorLabel.hpp"
#include "filters/FilterTable.hpp"

class QCheckBox;
class QComboBox;
class QDialog;
class QFrame;
class QLabel;
class QLayout;
class QPushButton;
class QToolButton;

namespace mobrel {

/// Makes them all, owned by the dialog. Above, the panes grow with it, and their tools; then the etched line;
/// below, what is set.
class FilterForm {
 public:
    explicit FilterForm(QDialog& dialog);

    /// Lowers the panes where the dialog as it is designed is higher than that.
    void fitHeight(int height);
    /// How far below the list its drop-down can reach.
    void fitDropDown(const QDialog& dialog);
    /// Shows a slider in its row; the rows of as many sliders stand in the middle.
    void placeSliders(std::size_t count);

    /// All that a document with a palette leaves no use for: everything but Preview, Apply, Close and the
    /// toolbar.
    std::vector<QWidget*> parameterControls() const;

    QLabel* Label1;
    QToolButton* Image1;

    OwningControlWidget<ucCanvas>* iBfrCanvas;
    OwningControlWidget<PicturePane>* iAft;
    QCheckBox* chkFit;
    QPushButton* cmdZoomIn;
    QPushButton* cmdZoomOut;
    QCheckBox* chkPickColor;
    QCheckBox* chkLock;
    QToolButton* CommandUndo;
    QToolButton* CommandRedo;

    QLabel* lblComboFilter;
    QComboBox* cbFilter;
    QFrame* fraParams;
    std::array<QWidget*, kFilterSliders> fraParam;
    std::array<QLabel*, kFilterSliders> lblParamName;
    std::array<OwningControlWidget<zenSlider>*, kFilterSliders> sbParam;
    std::array<QLabel*, kFilterSliders> lblParamValue;
    QWidget* fraColorSelection;
    std::array<QLabel*, 2> lblColorT;
    std::array<ColorLabel*, 2> lblColor;

    QCheckBox* chkResetValues;
    QCheckBox* chkNoClose;
    QLabel* Info1;
    QPushButton* cmdPreview;
    QPushButton* cmdApply;
    QPushButton* cmdClose;

 private:
    QWidget* makeHeader();
    QLayout* makePanes();
    QLayout* makeBeforeTools();
    QLayout* makeCommand();
    QLayout* makeSettings();
    QWidget* makeParameters();
    QWidget* makeParameter(std::size_t index);
    QWidget* makeColorSelection();
    QLayout* makeButtons();
    void orderTabs();

    /// Design pixels as Qt's.
    int units(double designPixels) const;

    QDialog& m_dialog;
    double m_unit;
    std::array<QFrame*, 2> m_paneFrames;
};

}  // namespace mobrel
