// SPDX-License-Identifier: MIT
// Every filter gives the bytes and events of its recipe with each set of instructions that this processor
// has, and with none.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "filters/kernels/rank.hpp"
#include "support/FilterRun.hpp"
#include "support/OnlyTarget.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::firstDifference;
using test::textOf;

void expectRecipes(const test::Picture& picture, const test::Picture& texture) {
    for (const FilterEntry& entry : kFilterCatalogue) {
        const test::Values values = test::presetsOf(entry);
        test::Picture expected = picture;
        test::EventLog log;
        recipes::callRecipe(entry.name, expected, values, texture, log);
        const test::Outcome outcome = test::outcomeOf(entry, values, texture, picture);
        ASSERT_EQ(firstDifference(expected, outcome.picture), "") << textOf(entry, values);
        ASSERT_EQ(log.toString(), outcome.events) << textOf(entry, values);
    }
}

TEST(Processors, AllGiveTheSameBytes) {
    const test::Picture texture = test::textureOf(5, 3);
    std::vector<test::PictureSize> sizes;
    for (const int width : {1, 2, 3, 5, 6, 9, 10, 17, 18, 19, 33, 34, 35, 50, 67})
        sizes.push_back({width, 5});
    // Around the bands of rows that some filters go up by.
    for (const int height : {33, 34, 35, 36, 37, 51, 67, 80}) sizes.push_back({7, height});
    for (const std::int64_t target : test::allTargets()) {
        SCOPED_TRACE(hwy::TargetName(target));
        const test::OnlyTarget only(target);
        for (const test::PictureSize size : sizes) {
            for (const auto& [name, picture] : test::sweepPictures(size)) {
                SCOPED_TRACE(name);
                expectRecipes(picture, texture);
            }
        }
    }
    EXPECT_GT(test::allTargets().size(), 1U);
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
        const auto moved = [&](std::int64_t target) {
            const test::OnlyTarget only(target);
            return movedSamples(moveRow);
        };
        const std::vector<std::uint8_t> plain = moved(HWY_SCALAR);
        for (const std::int64_t target : test::allTargets()) {
            EXPECT_TRUE(moved(target) == plain) << hwy::TargetName(target);
        }
    }
}

}  // namespace
}  // namespace mobrel
