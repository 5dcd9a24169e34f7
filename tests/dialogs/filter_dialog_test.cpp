// SPDX-License-Identifier: MIT
// The filter dialog over a document, as its user works with it.
#include "dialogs/filter/fFilter.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolButton>

#include "desktop/Application.hpp"
#include "shell/main_window.hpp"

namespace mobrel {
namespace {

class FilterDialog : public test::FMain {
 protected:
    /// Runs a host's start with the dialog of a filter, and acts while it is open.
    void withDialog(int filter, const std::function<void(fFilter&)>& act) {
        fMain::setGlobalDesktop({&windows, &clipboard, &events});
        askFor("5");
        windows.insideDialog = [&] {
            fFilter dialog(fMain::Global());
            dialog.Initialize(filter);
            dialog.show();
            QCoreApplication::processEvents();
            act(dialog);
            dialog.close();
        };
        fMain::Global().Load();
        fMain::setGlobalDesktop(consoleDesktop());
    }

    template <typename Widget>
    static Widget& child(fFilter& dialog, const char* name) {
        Widget* const found = dialog.findChild<Widget*>(name);
        if (found == nullptr) throw std::runtime_error(name);
        return *found;
    }
    static zenSlider& slider(fFilter& dialog, int index) {
        const std::string name = "sbParam(" + std::to_string(index) + ")";
        return dynamic_cast<zenSlider&>(child<ControlWidget>(dialog, name.c_str()).control());
    }
    static ucCanvas& before(fFilter& dialog) {
        return dynamic_cast<ucCanvas&>(child<ControlWidget>(dialog, "iBfrCanvas").control());
    }
    static void click(fFilter& dialog, const char* name) { child<QAbstractButton>(dialog, name).click(); }
    static void choose(fFilter& dialog, int filter) {
        auto& list = child<QComboBox>(dialog, "cbFilter");
        list.setCurrentIndex(filter);
        emit list.activated(filter);
    }
    /// Which of Preview and Apply can be pressed.
    static std::pair<bool, bool> commands(fFilter& dialog) {
        return {child<QPushButton>(dialog, "cmdPreview").isEnabled(),
                child<QPushButton>(dialog, "cmdApply").isEnabled()};
    }

    static std::vector<std::uint8_t> bytesOf(const cDIB& picture) {
        return {picture.DIBitsPtr(), picture.DIBitsPtr() + picture.Size()};
    }
    static std::vector<std::uint8_t> documentBytes() { return bytesOf(fMain::Global().Canvas.DIB); }
    static std::vector<std::uint8_t> negativeOf(std::vector<std::uint8_t> bytes) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (i % 4 != 3) bytes[i] = static_cast<std::uint8_t>(255 - bytes[i]);
        }
        return bytes;
    }

    static constexpr std::pair kNone{false, false};
    static constexpr std::pair kPreview{true, false};
    static constexpr std::pair kApply{false, true};
};

TEST_F(FilterDialog, CommandsFollowWhatIsDone) {
    withDialog(0, [&](fFilter& dialog) {
        EXPECT_EQ(commands(dialog), kNone);
        EXPECT_FALSE(child<QWidget>(dialog, "fraColorSelection").isVisible());
        choose(dialog, 5);
        EXPECT_EQ(fMain::Global().LastFilterID, 5);
        EXPECT_EQ(commands(dialog), kPreview);
        EXPECT_FALSE(child<QLabel>(dialog, "Info1").isVisible());
        click(dialog, "cmdPreview");
        EXPECT_EQ(commands(dialog), kApply);
        EXPECT_TRUE(child<QLabel>(dialog, "Info1").isVisible());
        EXPECT_TRUE(child<QPushButton>(dialog, "cmdApply").isDefault());
        slider(dialog, 0).setValue(7);
        EXPECT_EQ(commands(dialog), kPreview);
        choose(dialog, 0);
        EXPECT_EQ(commands(dialog), kNone);
    });
}

TEST_F(FilterDialog, SlidersAreThoseOfTheFilter) {
    withDialog(3, [&](fFilter& dialog) {
        const auto shown = [&] {
            std::vector<std::string> rows;
            for (const char* index : {"(0)", "(1)", "(2)"}) {
                const std::string suffix = index;
                if (!child<QWidget>(dialog, ("fraParam" + suffix).c_str()).isVisible()) continue;
                rows.push_back(
                    child<QLabel>(dialog, ("lblParamName" + suffix).c_str()).text().toStdString() + " " +
                    child<QLabel>(dialog, ("lblParamValue" + suffix).c_str()).text().toStdString());
            }
            return rows;
        };
        using Rows = std::vector<std::string>;
        EXPECT_EQ(shown(), (Rows{"Hue 0", "Saturation 50", "Luminosity 100"}));
        slider(dialog, 1).setValue(80);
        EXPECT_EQ(shown()[1], "Saturation 80");
        for (const int filter : {12, 20, 1, 5, 25, 3}) choose(dialog, filter);  // ranges of all kinds in turn
        EXPECT_EQ(shown(), (Rows{"Hue 0", "Saturation 50", "Luminosity 100"}));
        const auto knob = [&](int earlier) {
            choose(dialog, earlier);
            choose(dialog, 18);
            return child<QWidget>(dialog, "sbParam(1)").grab().toImage();
        };
        EXPECT_EQ(knob(20), knob(3));  // 0 is in the middle of one, and at the beginning of the other
        choose(dialog, 17);
        EXPECT_EQ(shown(), (Rows{"Level 1"}));
        EXPECT_EQ(std::pair(slider(dialog, 0).Min(), slider(dialog, 0).Max()), std::pair(1, 100));
        choose(dialog, 12);
        EXPECT_EQ(shown(), Rows{});
        EXPECT_TRUE(child<QWidget>(dialog, "fraParams").isVisible());
    });
}

TEST_F(FilterDialog, PreviewsDoNotStackAndStoreNothing) {
    withDialog(13, [&](fFilter& dialog) {
        const auto original = documentBytes();
        const auto steps = fMain::Global().UndoPos();
        for (int i = 0; i < 2; ++i) {
            choose(dialog, 13);
            click(dialog, "cmdPreview");
            EXPECT_EQ(documentBytes(), negativeOf(original));
        }
        EXPECT_EQ(bytesOf(before(dialog).DIB), original);
        EXPECT_EQ(fMain::Global().UndoPos(), steps);
        EXPECT_EQ(winState(), "none");
    });
}

TEST_F(FilterDialog, ApplyInAnOpenDialogBuildsOnTheResult) {
    withDialog(13, [&](fFilter& dialog) {
        const auto original = documentBytes();
        const auto steps = fMain::Global().UndoPos();
        child<QCheckBox>(dialog, "chkNoClose").setChecked(true);
        click(dialog, "cmdPreview");
        click(dialog, "cmdApply");
        EXPECT_EQ(winState(), "1");
        EXPECT_EQ(commands(dialog), kPreview);
        EXPECT_EQ(fMain::Global().UndoPos(), steps + 1);
        EXPECT_EQ(bytesOf(before(dialog).DIB), negativeOf(original));
        click(dialog, "cmdPreview");
        EXPECT_EQ(documentBytes(), original);
        click(dialog, "cmdApply");
        EXPECT_TRUE(child<QToolButton>(dialog, "Undo").isEnabled());
        click(dialog, "Undo");
        EXPECT_EQ(documentBytes(), negativeOf(original));
        EXPECT_EQ(bytesOf(before(dialog).DIB), negativeOf(original));
        EXPECT_EQ(commands(dialog), kPreview);
        EXPECT_TRUE(child<QToolButton>(dialog, "Redo").isEnabled());
        click(dialog, "Redo");
        EXPECT_EQ(documentBytes(), original);
        EXPECT_FALSE(child<QToolButton>(dialog, "Redo").isEnabled());
    });
}

TEST_F(FilterDialog, ClosingTakesBackWhatIsNotApplied) {
    for (const bool isChangedAfterwards : {false, true}) {
        std::vector<std::uint8_t> original;
        fMain* owner = nullptr;
        withDialog(5, [&](fFilter& dialog) {
            owner = &fMain::Global();
            original = documentBytes();
            slider(dialog, 0).setValue(100);
            click(dialog, "cmdPreview");
            if (isChangedAfterwards) slider(dialog, 0).setValue(50);
            click(dialog, "cmdClose");
            EXPECT_FALSE(dialog.isVisible());
        });
        // a preview that was followed by a change stays
        EXPECT_EQ(bytesOf(owner->Canvas.DIB) != original, isChangedAfterwards);
        EXPECT_EQ(winState(), "none");
        EXPECT_TRUE(temporaryFiles().empty());
    }
    EXPECT_EQ(clipboard.copies, 2);
}

TEST_F(FilterDialog, WhereItIsNotTheEndOfARunTheDocumentStays) {
    for (const char* end : {"cmdApply", "cmdClose"}) {
        withDialog(13, [&](fFilter& dialog) {
            fMain& owner = fMain::Global();
            owner.Rules.dialogEndsRun = false;
            const auto original = documentBytes();
            click(dialog, "cmdPreview");
            click(dialog, end);
            EXPECT_FALSE(dialog.isVisible());
            EXPECT_EQ(&fMain::Global(), &owner);
            EXPECT_NE(owner.DIBFilter, nullptr);
            EXPECT_EQ(documentBytes() == original, std::string(end) == "cmdClose");
            owner.Unload();
        });
    }
}

TEST_F(FilterDialog, GoesWithTheMainWindow) {
    withDialog(13, [&](fFilter& dialog) {
        fMain::Global().Unload();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(clipboard.copies, 1);
}

TEST_F(FilterDialog, ResetGoesBackToTheDefaultsAfterAPreview) {
    withDialog(5, [&](fFilter& dialog) {
        child<QCheckBox>(dialog, "chkResetValues").setChecked(true);
        auto& keyboard = child<QWidget>(dialog, "sbParam(0)");
        keyboard.setFocus();
        slider(dialog, 0).setValue(99);
        click(dialog, "cmdPreview");
        EXPECT_EQ(slider(dialog, 0).Value(), 0);
        EXPECT_EQ(commands(dialog), kApply);
        EXPECT_EQ(dialog.focusWidget(), &keyboard);
    });
}

TEST_F(FilterDialog, ColoursArePickedFromTheBeforePane) {
    withDialog(18, [&](fFilter& dialog) {
        auto& from = child<ColorLabel>(dialog, "lblColor(0)");
        auto& to = child<ColorLabel>(dialog, "lblColor(1)");
        const auto pick = [&](std::int16_t button, int x, int y) {
            before(dialog).MouseMove.raise(button, 0, x, y);
            return std::pair(from.BackColor(), to.BackColor());
        };
        const auto colorAt = [&](int x, int y) {
            return static_cast<Color>(before(dialog).DIB.hDIBDC()->GetPixel(x, y));
        };
        click(dialog, "cmdPreview");
        EXPECT_EQ(pick(MouseButton::kLeft, 1, 2), std::pair(colorAt(1, 2), 0U));
        EXPECT_EQ(commands(dialog), kPreview);
        EXPECT_EQ(pick(MouseButton::kRight, 3, 0), std::pair(colorAt(1, 2), colorAt(3, 0)));
        EXPECT_EQ(pick(MouseButton::kNone, 0, 0), std::pair(colorAt(1, 2), colorAt(3, 0)));
        EXPECT_EQ(pick(MouseButton::kLeft | MouseButton::kRight, 2, 2),
                  std::pair(colorAt(1, 2), colorAt(2, 2)));
        EXPECT_EQ(pick(MouseButton::kRight, 99, 0), std::pair(colorAt(1, 2), 0U));  // outside
        child<QCheckBox>(dialog, "chkLock").setChecked(true);
        EXPECT_EQ(pick(MouseButton::kLeft, 4, 3), std::pair(colorAt(4, 3), colorAt(4, 3)));
        child<QCheckBox>(dialog, "chkPickColor").setChecked(false);
        EXPECT_EQ(before(dialog).WorkMode(), 0);
        EXPECT_EQ(pick(MouseButton::kLeft, 0, 0), std::pair(colorAt(4, 3), colorAt(4, 3)));

        choose(dialog, 26);
        EXPECT_EQ(std::pair(from.BackColor(), to.BackColor()), std::pair(0U, 0U));
        EXPECT_FALSE(to.isVisible());
        child<QCheckBox>(dialog, "chkPickColor").setChecked(true);
        EXPECT_EQ(pick(MouseButton::kRight, 1, 2), std::pair(0U, 0U));
    });
}

TEST_F(FilterDialog, FitAndZoom) {
    withDialog(1, [&](fFilter& dialog) {
        const auto zoomButtons = [&] {
            return std::pair(child<QPushButton>(dialog, "cmdZoomIn").isEnabled(),
                             child<QPushButton>(dialog, "cmdZoomOut").isEnabled());
        };
        EXPECT_TRUE(before(dialog).FitMode());
        EXPECT_EQ(zoomButtons(), std::pair(false, false));
        click(dialog, "chkFit");
        EXPECT_FALSE(before(dialog).FitMode());
        EXPECT_EQ(zoomButtons(), std::pair(true, true));
        for (int i = 0; i < 12; ++i) click(dialog, "cmdZoomIn");
        EXPECT_EQ(before(dialog).Zoom(), 10);
        before(dialog).wheelTurned({ShiftState::kControl, 5, 5, 0, 120});
        EXPECT_EQ(before(dialog).Zoom(), 10);
        for (int i = 0; i < 12; ++i) click(dialog, "cmdZoomOut");
        EXPECT_EQ(before(dialog).Zoom(), 1);
    });
}

TEST_F(FilterDialog, APaletteLeavesOnlyTheCommands) {
    withDialog(5, [&](fFilter& dialog) {
        fMain::Global().mnuColorsz(5);
        fMain::Global().mnuColorsz(8);
        click(dialog, "Undo");  // back to 16 colours
        EXPECT_EQ(fMain::Global().BPP, 4);
        EXPECT_EQ(commands(dialog), kNone);
        for (const char* name : {"cbFilter", "sbParam(0)", "chkFit", "chkNoClose", "iBfrCanvas"})
            EXPECT_FALSE(child<QWidget>(dialog, name).isEnabled()) << name;
        for (const char* name : {"cmdClose", "Redo"})
            EXPECT_TRUE(child<QWidget>(dialog, name).isEnabled()) << name;
        click(dialog, "Redo");
        EXPECT_TRUE(child<QWidget>(dialog, "cbFilter").isEnabled());
        EXPECT_EQ(commands(dialog), kPreview);
    });
}

TEST_F(FilterDialog, AnEmptyDocumentBearsEverything) {
    std::filesystem::remove(fileInFolder("temp.bmp"));
    withDialog(10, [&](fFilter& dialog) {
        child<QCheckBox>(dialog, "chkNoClose").setChecked(true);
        for (int filter = 0; filter < static_cast<int>(kFilterTable.size()); ++filter) {
            choose(dialog, filter);
            slider(dialog, 0).setValue(slider(dialog, 0).Max());
            before(dialog).MouseDown.raise(MouseButton::kLeft, 0, 0, 0);
            click(dialog, "cmdPreview");
            click(dialog, "cmdApply");
        }
        for (const char* name : {"chkFit", "cmdZoomIn", "cmdZoomOut", "Undo", "Redo"}) click(dialog, name);
        dialog.resize(900, 700);
    });
    EXPECT_EQ(windows.messages, std::vector<std::string>{"Unexpected error loading image"});
}

TEST_F(FilterDialog, OptionsAreReadAndNeverWritten) {
    std::ofstream(fileInFolder("Mobrel.ini"))
        << "[Forms]\nFilterTop=450\nFilterLeft=600\n[Options]\nFilterBeforeFit=0\n"
           "FilterBeforePickColor=0\nFilterResetValues=1\nFilterNoClose=1\n";
    withDialog(1, [&](fFilter& dialog) {
        EXPECT_EQ(dialog.pos(), QPoint(40, 30));
        EXPECT_FALSE(before(dialog).FitMode());
        EXPECT_EQ(before(dialog).WorkMode(), 0);
        for (const char* name : {"chkResetValues", "chkNoClose"})
            EXPECT_TRUE(child<QCheckBox>(dialog, name).isChecked()) << name;
        click(dialog, "chkNoClose");
    });
    EXPECT_EQ(setting("Options", "FilterNoClose"), "1");
}

TEST_F(FilterDialog, StandsOnTheScreenAsAWhole) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const char* place : {"FilterTop=1e30\nFilterLeft=-1e30\n", "FilterTop=-1500\nFilterLeft=1e6\n"}) {
        std::ofstream(fileInFolder("Mobrel.ini")) << "[Forms]\n" << place;
        withDialog(1, [&](fFilter& dialog) {
            EXPECT_TRUE(screen.contains(QRect(dialog.pos(), dialog.size()))) << place;
        });
    }
    const QFont font = QApplication::font();
    QFont large = font;
    large.setPointSize(16);  // which the designed dialog would be too high for
    QApplication::setFont(large);
    withDialog(1, [&](fFilter& dialog) {
        const int bottom = child<QPushButton>(dialog, "cmdClose").mapToGlobal(QPoint(0, 0)).y();
        EXPECT_LT(bottom + child<QPushButton>(dialog, "cmdClose").height(), screen.bottom());
    });
    QApplication::setFont(font);
}

TEST_F(FilterDialog, AnOptionThatIsNoStateOfACheckBoxIsAnError) {
    std::ofstream(fileInFolder("Mobrel.ini")) << "[Options]\nFilterNoClose=3\n";
    fMain::setGlobalDesktop({&windows, &clipboard, &events});
    askFor("5");
    windows.insideDialog = [&] {
        EXPECT_EQ(fatalErrorOf([] { const fFilter dialog(fMain::Global()); }),
                  errorText(ErrorNumber::InvalidPropertyValue));
    };
    fMain::Global().Load();
    fMain::Global().Unload();
    fMain::setGlobalDesktop(consoleDesktop());
}

TEST_F(FilterDialog, GrowsWithBothPanes) {
    withDialog(13, [&](fFilter& dialog) {
        auto& after = child<ControlWidget>(dialog, "iAft");
        const QSize small = after.size();
        dialog.resize(dialog.width() + 200, dialog.height() + 150);
        QCoreApplication::processEvents();
        EXPECT_EQ(after.width(), small.width() + 100);
        EXPECT_GE(after.height(), small.height() + 150);  // below, lines of text may need less
        EXPECT_EQ(child<ControlWidget>(dialog, "iBfrCanvas").size(), after.size());
        // the picture stands in the middle, filtered
        const QImage seen = after.grab().toImage();
        const int left = (after.control().width() - 5) / 2;
        const int top = (after.control().height() - 4) / 2;
        const Color original = static_cast<Color>(before(dialog).DIB.hDIBDC()->GetPixel(2, 1));
        EXPECT_EQ(seen.pixelColor(left + 2, top + 1).red(), 255 - static_cast<int>(original & 0xFF));

        dialog.resize(1, 1);
        QCoreApplication::processEvents();
        const int bottom = after.mapTo(&dialog, after.rect().bottomLeft()).y();
        EXPECT_GT(child<QWidget>(dialog, "cmdZoomIn").y(), bottom + 5) << "rows keep their distance";
    });
}

}  // namespace
}  // namespace mobrel
