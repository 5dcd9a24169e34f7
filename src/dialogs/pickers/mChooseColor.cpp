// SPDX-License-Identifier: MIT
#include "dialogs/pickers/mChooseColor.hpp"

#include <QColorDialog>
#include <array>

#include "desktop/QtValues.hpp"
#include "desktop/RunningEvents.hpp"

namespace mobrel {

namespace {

constexpr int kCustomColors = 16;

std::array<Color, kCustomColors> customColors{};
bool areCustomColorsFilled = false;

/// A row of greys from black to white.
void fillCustomColors() {
    constexpr Color kGreyStep = 17 * 0x010101;
    for (int i = 0; i < kCustomColors; ++i) customColors[i] = static_cast<Color>(i) * kGreyStep;
    areCustomColorsFilled = true;
}

/// Where Qt keeps the colour that is number `index` by rows: its own numbers go down the columns of two.
constexpr int qtIndex(int index) {
    return index / 8 + index % 8 * 2;
}

/// Qt has one set of custom colours, and a dialog that goes away stores it in the user's files, for the
/// dialogs of all programs. While this lives, which ends before the dialog does, the set is ours.
class OwnCustomColors {
 public:
    OwnCustomColors() {
        for (int i = 0; i < kCustomColors; ++i) m_before[i] = QColorDialog::customColor(i);
        for (int i = 0; i < kCustomColors; ++i)
            QColorDialog::setCustomColor(qtIndex(i), qtColor(customColors[i]));
    }
    ~OwnCustomColors() {
        for (int i = 0; i < kCustomColors; ++i)
            customColors[i] = coreColor(QColorDialog::customColor(qtIndex(i)));
        for (int i = 0; i < kCustomColors; ++i) QColorDialog::setCustomColor(i, m_before[i]);
    }
    OwnCustomColors(const OwnCustomColors&) = delete;
    OwnCustomColors& operator=(const OwnCustomColors&) = delete;

 private:
    std::array<QColor, kCustomColors> m_before;
};

}  // namespace

// The whole dialog is always open: Qt has no smaller one.
std::int32_t ChooseColorEx(QWidget* owner, Color initialColor, bool /*fullOpen*/) {
    if (!areCustomColorsFilled) fillCustomColors();
    QColorDialog dialog(qtColor(initialColor), owner);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    const OwnCustomColors own;
    const RunningEvents running;
    if (dialog.exec() != QDialog::Accepted) return -1;
    return static_cast<std::int32_t>(coreColor(dialog.selectedColor()));
}

}  // namespace mobrel
