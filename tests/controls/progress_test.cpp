// SPDX-License-Identifier: MIT
// The progress bar: its widths, when it paints, borders, what is stored.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "controls/ucProgress.hpp"
#include "support/FakeHost.hpp"
#include "support/FakePropertyBag.hpp"
#include "support/LetterColors.hpp"
#include "support/PictureGrid.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::FakePropertyBag;
using test::LetterColors;
using test::PictureGrid;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

/// How many columns of a bar without border have the bar's colour, and that the others have the rest's.
int barColumns(const PictureGrid& grid) {
    int columns = 0;
    const PictureGrid letters = LetterColors::picture({"mf"});
    for (int x = 0; x < grid.width(); ++x) {
        if (grid.at(x, 0) == letters.at(0, 0)) {
            EXPECT_EQ(x, columns++);
        } else {
            EXPECT_EQ(grid.at(x, 0), letters.at(1, 0));
        }
    }
    return columns;
}

TEST(UcProgress, TheBarIsAsWideAsItsShare) {
    const struct {
        int width;
        std::int32_t max, value;
        int bar;
        const char* told;  // to assistive programs
    } kRows[] = {
        {100, 1000, 0, 0, "0 %"},
        {100, 1000, 9, 0, "0 %"},
        {100, 1000, 10, 1, "1 %"},
        {100, 3, 1, 33, "33 %"},
        {100, 3, 3, 100, "100 %"},
        {100, 3, 4, 100, "100 %"},
        {100, 3, -1, 0, "0 %"},
        {1, 2, 1, 0, "50 %"},
        {100, 0, 1, 100, "100 %"},
        {100, -5, 0, 0, "0 %"},
        {100, 1, kGreatest, 100, "100 %"},
        {100, 1, kLeast, 0, "0 %"},
        {100, kGreatest, kGreatest - 1, 99, "99 %"},
    };
    const LetterColors colors;
    for (const auto& row : kRows) {
        SCOPED_TRACE(::testing::Message() << row.width << ": " << row.value << " of " << row.max);
        ucProgress progress;
        progress.setBorderStyle(ProgressBorder::None);
        FakeHost host(progress, row.width, 2);
        progress.setMax(row.max);
        EXPECT_GE(progress.Max(), 1);
        progress.setValue(row.value);
        EXPECT_EQ(progress.Value(), row.value);
        EXPECT_EQ(progress.accessibleValue(), row.told);
        EXPECT_EQ(barColumns(host.screen()), row.bar);
        EXPECT_TRUE(host.isAllShown());
        // The same after all is painted anew.
        host.resize(row.width, 3, 1);
        EXPECT_EQ(barColumns(host.copyOfImage()), row.bar);
    }
}

TEST(UcProgress, PaintsAtOnceWhatChangedAndNothingElse) {
    const LetterColors colors;
    ucProgress progress;
    progress.setMax(1000);
    FakeHost host(progress, 104, 12);
    host.shown.clear();
    for (std::int32_t value = 0; value < 10; ++value) progress.setValue(value);
    EXPECT_TRUE(host.shown.empty());
    progress.setValue(10);
    progress.setValue(500);
    progress.setValue(250);
    progress.setValue(4000);
    progress.setValue(1000);
    EXPECT_EQ(host.shown,
              (std::vector<Rect>{{2, 2, 3, 10}, {3, 2, 52, 10}, {27, 2, 52, 10}, {27, 2, 102, 10}}));
    EXPECT_TRUE(host.isAllShown());
    host.shown.clear();
    progress.setMax(2000);  // the bar follows with the next value
    EXPECT_TRUE(host.shown.empty());
    progress.setValue(1000);
    EXPECT_EQ(host.shown, (std::vector<Rect>{{52, 2, 102, 10}}));
    host.shown.clear();
    progress.setForeColor(0x112233);
    progress.setBackColor(systemColorValue(SystemColor::Window));
    EXPECT_EQ(host.shown, (std::vector<Rect>(2, {0, 0, 104, 12})));
    EXPECT_EQ(host.screen().at(2, 2), 0x332211U);
    EXPECT_EQ(host.screen().at(101, 9), LetterColors::picture({"w"}).at(0, 0));
}

TEST(UcProgress, TheBorderIsAPartOfItsImage) {
    const struct {
        ProgressBorder style;
        double scale;
        std::vector<std::string> rows;
    } kRows[] = {
        {ProgressBorder::None, 1, {"mmmmffff", "mmmmffff", "mmmmffff", "mmmmffff", "mmmmffff", "mmmmffff"}},
        {ProgressBorder::Thin, 1, {"sssssssh", "smmmfffh", "smmmfffh", "smmmfffh", "smmmfffh", "hhhhhhhh"}},
        {ProgressBorder::Sunken, 1, {"sssssssh", "sdddddlh", "sdmmfflh", "sdmmfflh", "sllllllh", "hhhhhhhh"}},
        {ProgressBorder::Thin, 2, {"sssssshh", "sssssshh", "ssmmffhh", "ssmmffhh", "hhhhhhhh", "hhhhhhhh"}},
    };
    const LetterColors colors;
    for (const auto& row : kRows) {
        SCOPED_TRACE(static_cast<int>(row.style));
        ucProgress progress;
        FakeHost host(progress, 8, 6, row.scale);
        progress.setValue(50);
        progress.setBorderStyle(row.style);
        EXPECT_EQ(host.screen(), LetterColors::picture(row.rows));
    }
    ucProgress tiny;  // smaller than its border
    FakeHost host(tiny, 3, 1);
    tiny.setValue(100);
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture({"hhh"}));
}

TEST(UcProgress, PassesTheMouseOn) {
    ucProgress progress;
    FakeHost host(progress, 20, 10);
    std::string events;
    const auto note = [&](const char* name) {
        return [&events, name](std::int16_t button, std::int16_t shift, float x, float y) {
            events += std::string(name) + " " + std::to_string(button) + " " + std::to_string(shift) + " " +
                      std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)) + "; ";
        };
    };
    progress.MouseDown.connect(note("down"));
    progress.MouseMove.connect(note("move"));
    progress.MouseUp.connect(note("up"));
    progress.Click.connect([&] { events += "click; "; });
    progress.pointerPressed({MouseButton::kLeft, ShiftState::kAlt, 5, 6});
    progress.pointerMoved({MouseButton::kLeft, 0, 7, 6});
    progress.pointerReleased({MouseButton::kLeft, 0, 19, 9});
    progress.pointerReleased({MouseButton::kRight, 0, 20, 9});
    EXPECT_EQ(events, "down 1 4 3 4; move 1 0 5 4; up 1 0 17 7; click; up 2 0 18 7; ");
    events.clear();
    progress.setEnabled(false);
    progress.pointerPressed({MouseButton::kLeft, 0, 5, 6});
    progress.pointerMoved({MouseButton::kLeft, 0, 7, 6});
    progress.pointerReleased({MouseButton::kLeft, 0, 5, 6});
    EXPECT_EQ(events, "");
}

TEST(UcProgress, ShowsWhatItLoads) {
    FakePropertyBag bag;
    bag.values = {{"BorderStyle", 1}, {"BackColor", 0x010203U}, {"ForeColor", 0x040506U}, {"Max", 1}};
    ucProgress progress;
    FakeHost host(progress, 12, 5);
    progress.load(bag);
    EXPECT_EQ(host.screen().at(1, 1), 0x030201U);
    progress.setValue(1);
    EXPECT_EQ(host.screen().at(10, 3), 0x060504U);
}

}  // namespace
}  // namespace mobrel
