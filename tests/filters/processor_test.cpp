// SPDX-License-Identifier: MIT
// Every filter gives the bytes and events of its recipe with each set of instructions that this processor
// has, and with none.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "filters/kernels/despeckle.hpp"
#include "support/FilterRun.hpp"
#include "support/OnlyTarget.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::callText;
using test::firstDifference;

/// The presets, and an argument that makes colours clip.
test::Values valuesOf(const FilterEntry& entry) {
    test::Values values = test::presetsOf(entry);
    if (entry.name == "Contrast") values[0] = 150;
    return values;
}

void expectRecipes(const test::Picture& picture, const test::Picture& texture) {
    for (const FilterEntry& entry : kFilterCatalogue) {
        const test::Values values = valuesOf(entry);
        test::Picture expected = picture;
        test::EventLog log;
        recipes::callRecipe(entry.name, expected, values, texture, log);
        const test::FilterOutcome outcome = test::outcomeOf(entry, values, texture, picture);
        ASSERT_EQ(firstDifference(expected, outcome.picture), "") << callText(entry, values);
        ASSERT_EQ(log.toString(), outcome.events) << callText(entry, values);
    }
}

TEST(Processors, AllGiveTheSameBytes) {
    const test::Picture texture = test::textureOf(5, 3);
    std::vector<test::PictureSize> sizes;
    for (const int width : {1, 2, 3, 5, 6, 9, 10, 17, 18, 19, 33, 34, 35, 50, 67, 1045})
        sizes.push_back({width, 5});
    // Around the bands of rows that some filters go up by.
    for (const int height : {33, 34, 35, 36, 37, 51, 67, 80}) sizes.push_back({7, height});
    test::forEachTarget([&] {
        for (const test::PictureSize size : sizes) {
            for (const auto& [name, picture] : test::sweepPictures(size)) {
                SCOPED_TRACE(name);
                expectRecipes(picture, texture);
            }
        }
    });
}

using MoveRow = void (*)(std::uint8_t*, const std::uint8_t*, const std::uint8_t*, std::size_t);

/// What becomes of each sample between each two neighbours.
std::vector<std::uint8_t> movedSamples(MoveRow moveRow) {
    constexpr std::size_t kPixels = 256;
    std::vector<std::uint8_t> all;
    std::array<std::uint8_t, kPixels * 4> p{}, a{}, b{};
    for (std::size_t i = 0; i < b.size(); ++i) b[i] = static_cast<std::uint8_t>(i / 4);
    for (int pa = 0; pa < 65536; ++pa) {
        p.fill(static_cast<std::uint8_t>(pa >> 8));
        a.fill(static_cast<std::uint8_t>(pa & 255));
        moveRow(p.data(), a.data(), b.data(), kPixels);
        for (std::size_t i = 0; i < p.size(); i += 4) all.push_back(p[i]);
    }
    return all;
}

TEST(Processors, DespeckleEverySampleAsThePlainLoops) {
    for (const MoveRow moveRow : {kernels::despeckleRow, kernels::despeckleMoreRow}) {
        std::vector<std::uint8_t> plain;
        {
            const test::OnlyTarget none(HWY_SCALAR);
            plain = movedSamples(moveRow);
        }
        test::forEachTarget([&] { EXPECT_TRUE(movedSamples(moveRow) == plain); });
    }
}

/// Every fifth level of each channel with every other one, white and black among them.
test::Picture gridOfColours() {
    constexpr int kLevels = 52;
    test::Picture picture(kLevels * kLevels, kLevels);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const auto level = [](std::size_t n) { return static_cast<std::uint8_t>(n % kLevels * 5); };
        picture.pixels[i] = {level(i), level(i / kLevels), level(i / kLevels / kLevels),
                             static_cast<std::uint8_t>(i)};
    }
    return picture;
}

/// Colours at the very edge of a tolerance are among the grid: red and yellow differ by a hue of 1, pure
/// colours and greys by a saturation of 1.
TEST(Processors, AllSelectTheSameColours) {
    struct Selection {
        std::string_view operation;
        test::Values values;
    };
    const Selection selections[] = {
        {"ReplaceHS", {0x808080, 0x2040C0, 300, 100, 100}},
        {"ReplaceHS", {0x808080, 0x2040C0, 300, 0, 0}},
        {"ReplaceHS", {0x0000FF, 0xC0FF20, 400, 20, 60}},
        {"ReplaceHS", {0x2846B4, 0xFFFFFF, 400, 0, 0}},
        {"ReplaceHS", {0x2846B4, 0x10E000, 255, 17, 33}},
        {"ReplaceHS", {0xC81E5A, 0x000000, 36345, 43, 25}},
        {"ReplaceHS", {0x2846B4, 0x10E000, 255, -1, 100}},
        {"ReplaceL", {0x2846B4, 0xC81E5A, 255, 20}},
        {"ReplaceL", {0x2846B4, 0xC81E5A, 300, 0}},
        {"ReplaceL", {0x2846B4, 0xC81E5A, 300, -1}},
        {"Shift", {0x2846B4, 60, 255}},
        {"Shift", {0x2846B4, -255, 36345}},
        {"Shift", {0x2846B4, 2147483600, 400}},
    };
    const test::Picture picture = gridOfColours();
    const test::Picture texture = test::textureOf(5, 3);
    for (const Selection& selection : selections) {
        const FilterEntry& entry = test::entryOf(selection.operation);
        SCOPED_TRACE(callText(entry, selection.values));
        test::Picture expected = picture;
        test::EventLog log;
        recipes::callRecipe(entry.name, expected, selection.values, texture, log);
        test::forEachTarget([&] {
            const test::FilterOutcome outcome = test::outcomeOf(entry, selection.values, texture, picture);
            ASSERT_EQ(firstDifference(expected, outcome.picture), "");
        });
    }
}

}  // namespace
}  // namespace mobrel
