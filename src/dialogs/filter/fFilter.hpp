// SPDX-License-Identifier: MIT
// The filter dialog: one filter, its parameters, before and after.
#pragma once

#include <QDialog>
#include <cstdint>

#include "dialogs/filter/fFilter_form.hpp"
#include "shell/DocumentDialog.hpp"

namespace mobrel {

class fMain;

/// Works on the document of fMain::Global(). A change of a parameter shows in the after pane, on a reduced
/// copy; a preview filters the document itself, always from the picture of the before pane; Apply makes what
/// the document shows a step of its history. However it is closed, the main window is unloaded with it: the
/// dialog is the last thing that a run does.
class fFilter : public QDialog, public DocumentDialog {
 public:
    /// Errors: those of LoadFilterSettings, 380 for a check box that is neither 0, 1 nor 2.
    fFilter();
    ~fFilter() override;
    fFilter(const fFilter&) = delete;
    fFilter& operator=(const fFilter&) = delete;

    /// Takes the document over, and chooses a filter by its number in kFilterTable. Called before the dialog
    /// is shown. Error 380 for a number that is not in the table.
    void Initialize(int id);

    /// True only while a filter runs on the document for a look at it.
    bool Previewing() const override { return m_previewing; }
    void enableUndoRedo(bool undo, bool redo) override;

    /// Unloads the dialog, however it comes to its end.
    void done(int result) override;

 protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    enum class Reset { No, Yes };

    const FilterTableEntry& entry() const { return kFilterTable[static_cast<std::size_t>(FilterID)]; }
    std::size_t sliderCount() const;

    void loadSettings();
    void connectControls();
    void connectFilter();
    void unload();

    ucCanvas& before() { return m_form.iBfrCanvas->owned(); }
    void takeDocument();
    void restoreDocument();
    void fitAfter();
    void showAfter();
    void showSmallRoad();

    void ApplyFilter(cDIB& target);
    void SetupParams(Reset reset);
    void SetParam(std::size_t Index, const FilterSlider& slider);
    void ShowColors(int HideIndex);
    void setCommands(bool preview, bool apply);
    void offerPreview();

    void listClicked();
    void sliderChanged(std::size_t index);
    void colorClicked(std::size_t index);
    void pickColor(std::int16_t button, std::int32_t x, std::int32_t y);
    void fitClicked();
    void zoom(int steps);
    void cmdPreviewClicked();
    void cmdApplyClicked();
    void cmdCloseClicked();
    void commandClicked(void (*command)(fMain&));
    void enableControls(bool enabled);

    FilterForm m_form;
    cDIBFilter DIBAftPreview;
    cDIB AfterDIB;
    std::int32_t AfterLeft = 0;
    std::int32_t AfterTop = 0;
    std::int32_t AfterWidth = 0;
    std::int32_t AfterHeight = 0;
    std::int16_t FilterID = 0;
    bool ParamsReady = false;
    bool m_previewing = false;
    bool m_isInitialized = false;
    bool m_isUnloaded = false;
};

}  // namespace mobrel
