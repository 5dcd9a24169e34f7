// SPDX-License-Identifier: MIT
// What the entries of the filter list call.
#include "filters/FilterTable.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <random>

#include "platform/base/RandomSource.hpp"

namespace mobrel {
namespace {

void fillWithNoise(cDIB& picture) {
    ASSERT_TRUE(picture.Create(37, 23, 0));
    std::mt19937 random(7);
    for (int i = 0; i < picture.Size(); ++i) {
        if (i % 4 != 3) picture.DIBitsPtr()[i] = static_cast<std::uint8_t>(random());
    }
}

/// An entry, values for it, and the operation that must come of them.
struct Case {
    FilterId id;
    FilterValues values;
    std::function<void(cDIBFilter&, cDIB&)> expected;
};

TEST(FilterTable, CallsItsOperation) {
    const Color red = 0x2010C8;
    const Color blue = 0xC81020;
    using enum FilterId;
    const Case cases[] = {
        {None, {{9, 9, 9}}, [](auto&, auto&) {}},
        {Blur, {{25}}, [](auto& f, auto& d) { f.Blur(d, 100); }},
        {Brightness, {{-40}}, [](auto& f, auto& d) { f.ShiftRGB(d, -40, -40, -40); }},
        {Colorize, {{0, 50, 100}}, [](auto& f, auto& d) { f.Colorize(d, 0.F, 0.5F, 1.F); }},
        {Colorize, {{83, 50, 100}}, [](auto& f, auto& d) { f.Colorize(d, 4.975F, 0.5F, 1.F); }},
        {Colorize, {{84, 100, 70}}, [](auto& f, auto& d) { f.Colorize(d, -0.95F, 1.F, 0.7F); }},
        {Colorize, {{100, 7, 70}}, [](auto& f, auto& d) { f.Colorize(d, 0.F, 0.07F, 0.7F); }},
        {Contour, {}, [](auto& f, auto& d) { f.Contour(d); }},
        {Contrast, {{-50}}, [](auto& f, auto& d) { f.Contrast(d, -50); }},
        {Despeckle, {}, [](auto& f, auto& d) { f.Despeckle(d); }},
        {DespeckleMore, {}, [](auto& f, auto& d) { f.DespeckleMore(d); }},
        {Diffuse, {{3, 5, 2}}, [](auto& f, auto& d) { f.Diffuse(d, 3, 5, 2); }},
        {Dilate, {}, [](auto& f, auto& d) { f.RankFilterMaximum(d); }},
        {Emboss, {{120}}, [](auto& f, auto& d) { f.Emboss(d, 120, true); }},
        {Erode, {}, [](auto& f, auto& d) { f.RankFilterMinimum(d); }},
        {Greys, {}, [](auto& f, auto& d) { f.Greys(d); }},
        {Negative, {}, [](auto& f, auto& d) { f.Negative(d); }},
        {Noise, {{80, 3}}, [](auto& f, auto& d) { f.Noise(d, 80, 3); }},
        {Outline, {{60, -20}}, [](auto& f, auto& d) { f.Outline(d, 60, -20); }},
        {Pixelize, {{4}}, [](auto& f, auto& d) { f.Pixelize(d, 4); }},
        {Relieve, {{30}}, [](auto& f, auto& d) { f.Relieve(d, 30); }},
        {ReplaceHS,
         {{90, 40, 60}, red, blue},
         [&](auto& f, auto& d) { f.ReplaceHS(d, red, blue, 90, 40, 60); }},
        {ReplaceL, {{90, 40}, red, blue}, [&](auto& f, auto& d) { f.ReplaceL(d, red, blue, 90, 40); }},
        {RgbLevels, {{10, -20, 30}}, [](auto& f, auto& d) { f.ShiftRGB(d, 10, -20, 30); }},
        {SaltAndPepperRemoval, {{255}}, [](auto& f, auto& d) { f.SaltAndPepperRemoval(d, 0); }},
        {Saturation, {{150}}, [](auto& f, auto& d) { f.Saturation(d, 150); }},
        {ScanLines, {{70, 20}}, [](auto& f, auto& d) { f.ScanLines(d, 70, 20); }},
        {Sepia, {}, [](auto& f, auto& d) { f.Colorize(d, 0.5F, 0.25F, 1.F); }},
        {Sharpen, {{1}}, [](auto& f, auto& d) { f.Sharpen(d, 76); }},
        {Shift, {{70, 200}, red}, [&](auto& f, auto& d) { f.Shift(d, red, 70, 200); }},
        {Soften, {{10}}, [](auto& f, auto& d) { f.Soften(d, 85); }},
    };
    for (const Case& c : cases) {
        cDIB filtered;
        cDIB expected;
        fillWithNoise(filtered);
        fillWithNoise(expected);
        cDIBFilter filter;
        processRandomSource() = {};
        const FilterTableEntry& entry = kFilterTable[static_cast<std::size_t>(c.id)];
        entry.apply(filter, filtered, c.values);
        processRandomSource() = {};
        c.expected(filter, expected);
        EXPECT_EQ(std::memcmp(filtered.DIBitsPtr(), expected.DIBitsPtr(), std::size_t(filtered.Size())), 0)
            << entry.caption;
    }
}

}  // namespace
}  // namespace mobrel
