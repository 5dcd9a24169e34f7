// SPDX-License-Identifier: MIT
// The colour picker.
#include "dialogs/pickers/mChooseColor.hpp"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "desktop/QtValues.hpp"
#include "dialogs/OpenDialog.hpp"

namespace mobrel {
namespace {

using test::whenOpen;

/// As the dialog shows them: two rows of eight, which Qt numbers by columns.
std::vector<Color> customColorsByRows() {
    std::vector<Color> colors;
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 8; ++column) {
            colors.push_back(coreColor(QColorDialog::customColor(2 * column + row)));
        }
    }
    return colors;
}

void addCustomColor(QColorDialog& dialog, const QColor& color) {
    dialog.setCurrentColor(color);
    for (auto* const button : dialog.findChildren<QPushButton*>()) {
        if (button->text().contains("Custom")) return button->click();
    }
    ADD_FAILURE() << "no button";
}

TEST(ChooseColor, CustomColorsAreKeptForTheRun) {
    std::vector<Color> greys;
    for (Color grey = 0; grey <= 0xFF; grey += 17) greys.push_back(grey | grey << 8 | grey << 16);
    const std::vector<Color> ofAllPrograms = customColorsByRows();
    std::vector<Color> left;
    whenOpen<QColorDialog>([&](QColorDialog& dialog) {
        EXPECT_EQ(customColorsByRows(), greys);
        addCustomColor(dialog, QColor(1, 2, 3));
        left = customColorsByRows();
    });
    EXPECT_EQ(ChooseColorEx(nullptr, 0xFFFFFF, true), -1);
    EXPECT_EQ(std::ranges::count(left, 0x030201U), 1);
    EXPECT_EQ(customColorsByRows(), ofAllPrograms);

    whenOpen<QColorDialog>([&](QColorDialog& /*dialog*/) { EXPECT_EQ(customColorsByRows(), left); });
    EXPECT_EQ(ChooseColorEx(nullptr, 0xFFFFFF, false), -1);
}

TEST(ChooseColor, AnswersWithTheColorThatIsShown) {
    const auto agree = [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); };
    const auto refuse = [](QColorDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    const auto choose = [](int red, int green, int blue) {
        return [=](QColorDialog& dialog) {
            dialog.setCurrentColor(QColor(red, green, blue));
            dialog.accept();
        };
    };
    struct Case {
        std::function<void(QColorDialog&)> act;
        Color initial;
        std::int32_t answer;
    };
    const Case cases[] = {
        {agree, 0x0080FF, 0x0080FF},       // nothing is changed
        {refuse, 0x0080FF, -1},            //
        {agree, 0, 0},                     // black is no cancel
        {choose(0, 0, 0), 0x123456, 0},    //
        {choose(1, 2, 255), 0, 0xFF0201},  //
    };
    for (const Case& c : cases) {
        QColor shown;
        whenOpen<QColorDialog>([&](QColorDialog& dialog) {
            shown = dialog.currentColor();
            c.act(dialog);
        });
        EXPECT_EQ(ChooseColorEx(nullptr, c.initial, true), c.answer);
        EXPECT_EQ(coreColor(shown), c.initial);
    }
}

}  // namespace
}  // namespace mobrel
