// SPDX-License-Identifier: MIT
// Number rules, numbers in texts, the random source.
#include "platform/base/Numbers.hpp"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "platform/base/NumberText.hpp"
#include "platform/base/RandomSource.hpp"

namespace mobrel {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

int errorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

TEST(Numbers, RoundIntGoesToTheNearestAndTiesToEven) {
    const std::pair<double, std::int32_t> cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4, 2},
        {2147483647.4, kMax},
        {-2147483648.5, kMin},
        {126.5, 126},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(roundInt(value), expected) << value;
    for (const double value : {2147483647.5, -2147483649.0, 1e300, std::nan("")}) {
        EXPECT_EQ(errorOf([&] { roundInt(value); }), 6) << value;
    }
}

TEST(Numbers, DivTruncatesWrapsAndRefusesZero) {
    EXPECT_EQ(div(7, 2), 3);
    EXPECT_EQ(div(-7, 2), -3);
    EXPECT_EQ(div(7, -2), -3);
    EXPECT_EQ(div(kMin, -1), kMin);
    EXPECT_EQ(errorOf([] { div(1, 0); }), 11);
}

TEST(Numbers, SumsWrapAndBytesOverflow) {
    EXPECT_EQ(wrapAdd(kMax, 1), kMin);
    EXPECT_EQ(wrapSub(kMin, 1), kMax);
    EXPECT_EQ(wrapMul(65536, 65536), 0);
    EXPECT_EQ(toByte(255), 255);
    EXPECT_EQ(errorOf([] { toByte(256); }), 6);
    EXPECT_EQ(errorOf([] { toByte(-1); }), 6);
    EXPECT_EQ(clampByte(-5), 0);
    EXPECT_EQ(clampByte(300), 255);
}

TEST(NumberText, TellsNumbersFromOtherTexts) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"7", 7},      {"07", 7},   {" 28 ", 28}, {"2.8e1", 28}, {"\t5", 5},  {"+3", 3},
        {"-1", -1},    {".5", 0.5}, {"5.", 5},    {"1E2", 100},  {"", {}},    {"   ", {}},
        {"ERROR", {}}, {"5x", {}},  {"0x10", {}}, {"inf", {}},   {"nan", {}}, {"1e999", {}},
        {"+-3", {}},   {"--3", {}}, {"1 2", {}},  {"e5", {}},    {"1,5", {}}, {"5e", {}},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(numberOf(text), expected) << '"' << text << '"';
}

TEST(NumberText, WritesPlainDecimals) {
    EXPECT_EQ(textOf(15360.0F), "15360");
    EXPECT_EQ(textOf(-0.5F), "-0.5");
    EXPECT_EQ(textOf(1e7F), "10000000");
}

// The first outputs of SplitMix64 from state 0 are published; a number is the top 24 bits.
TEST(RandomSource, DrawsThePublishedSequence) {
    RandomSource source;
    for (const std::uint32_t bits : {0xE220A8U, 0x6E789EU, 0x06C45DU}) {
        EXPECT_EQ(source.next(), static_cast<float>(bits) / 16777216.0F);
    }
}

TEST(RandomSource, DrawsTheSameNumbersAtOnce) {
    RandomSource one;
    RandomSource many;
    for (std::size_t count = 0; count < 70; ++count) {
        std::vector<std::uint32_t> bits(count);
        many.draw(bits);
        for (const std::uint32_t number : bits) ASSERT_EQ(RandomSource::number(number), one.next()) << count;
    }
}

TEST(RandomSource, IsUniformBelowOne) {
    RandomSource source;
    constexpr int kDraws = 200'000;
    std::array<int, 16> counts{};
    for (int i = 0; i < kDraws; ++i) {
        const float value = source.next();
        ASSERT_GE(value, 0.0F);
        ASSERT_LT(value, 1.0F);
        ++counts[static_cast<std::size_t>(value * 16)];
    }
    // 12,500 are expected in each sixteenth, with a deviation of 108.
    for (const int count : counts) EXPECT_NEAR(count, kDraws / 16.0, 600);
}

}  // namespace
}  // namespace mobrel
