// SPDX-License-Identifier: MIT
// Which source pixels a stretch takes along one axis.
#include "platform/drawing/AxisMap.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace mobrel {
namespace {

/// What takes a source pixel, by the rule and a division each.
std::vector<std::pair<std::int64_t, std::int64_t>> pairsOf(const Side& target, const Side& source) {
    std::vector<std::pair<std::int64_t, std::int64_t>> pairs;
    for (std::int64_t pixel = 0; pixel < target.extent; ++pixel) {
        const std::int64_t d = target.size < 0 ? target.origin - pixel : pixel - target.origin;
        if (d < 0 || d >= target.length()) continue;
        const std::int64_t taken = source.place(((2 * d + 1) * source.length() - 1) / (2 * target.length()));
        if (taken >= 0 && taken < source.extent) pairs.emplace_back(pixel, taken);
    }
    return pairs;
}

TEST(AxisMapTest, SumsGiveWhatDivisionsGive) {
    std::mt19937 random(11);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const auto size = [&](int i) {
        constexpr int kMost = std::numeric_limits<int>::max();
        return (number(0, 1) == 0 ? 1 : -1) * number(1, i % 3 == 0 ? kMost : i % 3 == 1 ? 100'000 : 300);
    };
    int taken = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::int64_t targetSize = size(i);
        const std::int64_t sourceSize = size(i / 3);
        // Origins such that some of each side is seen.
        const Side target{targetSize < 0 ? number(-5, 300) : -number(-300, 5), targetSize, 200};
        const Side source{sourceSize < 0 ? number(0, 400) : -number(-5, 300), sourceSize, 100'000};
        const AxisMap map = mapAxis(target, source);
        const auto expected = pairsOf(target, source);
        ASSERT_EQ(map.sources.size(), expected.size()) << targetSize << " from " << sourceSize;
        for (std::size_t k = 0; k < expected.size(); ++k) {
            ASSERT_EQ(map.first + static_cast<std::int64_t>(k), expected[k].first) << targetSize;
            ASSERT_EQ(map.sources[k], expected[k].second) << targetSize << " from " << sourceSize;
        }
        taken += static_cast<int>(expected.size());
    }
    EXPECT_GT(taken, 50'000);
}

TEST(AxisMapTest, TellsWholeEnlargements) {
    const struct {
        std::vector<int> sources;
        const char* expected;  // before, times, whole
    } kRows[] = {
        {{4, 5, 5, 5, 6, 6, 6, 7}, "1 3 2"},
        {{4, 4, 4, 5, 5, 5}, "3 3 1"},
        {{4, 4, 5, 5, 6, 6}, "2 2 2"},
        {{4, 4, 4}, "none"},
        {{4, 5, 6}, "none"},
        {{4, 4, 4, 5, 5, 6}, "none"},
        {{4, 5, 5, 6}, "1 2 1"},
        {{4, 5, 5, 6, 7}, "none"},
        {{4, 5, 5, 5, 6, 6, 7}, "none"},
        {{4, 5, 5, 7, 7}, "none"},
        {{6, 6, 5, 5, 4, 4}, "none"},
    };
    for (const auto& row : kRows) {
        const auto found = repetitionOf({0, row.sources});
        EXPECT_EQ(found ? std::to_string(found->before) + ' ' + std::to_string(found->times) + ' ' +
                              std::to_string(found->whole)
                        : "none",
                  row.expected)
            << testing::PrintToString(row.sources);
    }
}

}  // namespace
}  // namespace mobrel
