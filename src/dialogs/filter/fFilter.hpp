// SPDX-License-Identifier: MIT
// The filter dialog: one filter, its parameters, before and after.
#pragma once

#include <cstdint>

#include "dialogs/common/DialogFrame.hpp"
#include "dialogs/filter/fFilter_form.hpp"
#include "shell/DocumentPreview.hpp"
#include "shell/DocumentView.hpp"

namespace mobrel {

/// Works on a main window's document. A change of a parameter shows in the after pane, on a reduced copy; a
/// preview filters the document itself, always from the picture of the before pane; Apply makes what the
/// document shows a step of its history. In a host's run the main window is unloaded with the dialog, however
/// that is closed: it is the last thing that the run does.
///
/// The panes grow with the window. The after pane is then fitted anew, and shows the same values.
class fFilter final : public DialogFrame, public DocumentView {
 public:
    /// Errors, which end the run before the dialog opens: those of LoadFilterSettings, 380 for a check box
    /// that is neither 0, 1 nor 2.
    explicit fFilter(fMain& main, QWidget* parent = nullptr);
    ~fFilter() override;

    /// Takes the document over, and chooses a filter by its number in kFilterTable. Called before the dialog
    /// is shown. Error 380 for a number that is not in the table.
    void Initialize(int id);

    bool Previewing() const override { return m_preview.isRunning(); }
    void historyChanged(bool undo, bool redo) override;
    void unloading() override { done(Rejected); }

 protected:
    void unload() override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    enum class Reset { No, Yes };

    const FilterTableEntry& entry() const { return kFilterTable[static_cast<std::size_t>(FilterID)]; }
    std::size_t sliderCount() const;
    ucCanvas& before() { return m_form.iBfrCanvas->owned(); }

    void loadSettings();
    void connectControls();
    void connectFilter();

    void takeDocument();
    void fitAfter();
    void showAfter();
    void ApplyFilter(cDIB& target);
    void cmdPreviewClicked();
    void cmdApplyClicked();
    void commandClicked(void (fMain::*command)());

    void SetupParams(Reset reset);
    void SetParam(std::size_t Index, const FilterSlider& slider);
    void ShowColors(int HideIndex);
    void setCommands(bool preview, bool apply);
    void offerPreview();
    void enableControls(bool enabled);

    void listClicked();
    void sliderChanged(std::size_t index);
    void colorClicked(std::size_t index);
    void pickColor(std::int16_t button, std::int32_t x, std::int32_t y);
    void parametersChanged();
    void fitClicked();
    void zoom(int steps);

    FilterForm m_form;
    DocumentPreview m_preview;
    cDIBFilter DIBAftPreview;
    std::int16_t FilterID = 0;
    bool ParamsReady = false;
    bool m_isInitialized = false;
};

}  // namespace mobrel
