// SPDX-License-Identifier: MIT
// The ends of the catalogue's ranges: what lies beyond fails.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/resource.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "filters/cDIBFilter.hpp"
#include "platform/base/RuntimeError.hpp"
#include "support/FilterRun.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::callText;
using test::entryOf;
using test::FilterOutcome;
using test::lawPictures;
using test::outcomeOf;
using test::Picture;
using test::presetsOf;
using test::textureOf;
using test::Values;

enum class End { Least, Greatest };

/// A limit that stands short of the first value that fails: it is a round number, or holds for every value
/// of the other arguments, or for pictures of any size. `values` are the nearest that fail.
struct LooseLimit {
    std::string_view operation;
    std::string_view argument;
    End end;
    Values values;
};
constexpr LooseLimit kLooseLimits[] = {
    // Further out than on pictures that wrap the sum, which stand in a test of their own.
    {"Contrast", "Level", End::Least, {-842150450}},
    {"Contrast", "Level", End::Greatest, {842150351}},
    // Colours of full brightness leave the byte only some way beyond; a negative saturation turns the hue
    // round first.
    {"Colorize", "Hue", End::Least, {-1.01, 1, 1}},
    {"Colorize", "Hue", End::Greatest, {5.01, 1, 1}},
    {"Colorize", "Saturation", End::Least, {0.5, -1.02, 1}},
    {"Colorize", "Saturation", End::Greatest, {0.5, 1.02, 1}},
    {"Colorize", "Luminosity", End::Least, {0.5, 0.25, -0.01}},
    {"Colorize", "Luminosity", End::Greatest, {0.5, 0.25, 1.01}},
    {"Emboss", "Level", End::Least, {-842150350, 1}},
    {"Emboss", "Level", End::Greatest, {842150350, 1}},
    {"Engrave", "Level", End::Least, {-842150350, 1}},
    {"Engrave", "Level", End::Greatest, {842150350, 1}},
    // Level and Shift add up.
    {"Outline", "Level", End::Least, {-210683113, -1073000000}},
    {"Outline", "Level", End::Greatest, {210683038, 1073000000}},
    {"Outline", "Shift", End::Least, {-210000000, -1076483853}},
    {"Outline", "Shift", End::Greatest, {210000000, 1076483444}},
    {"Relieve", "Level", End::Least, {-84214945}},
    {"Relieve", "Level", End::Greatest, {84215147}},
    {"Saturation", "Level", End::Least, {-1263225651}},
    {"Saturation", "Level", End::Greatest, {1263225550}},
};

const LooseLimit* looseLimit(const FilterEntry& entry, const Argument& argument, End end) {
    for (const LooseLimit& limit : kLooseLimits) {
        if (limit.operation == entry.name && limit.argument == argument.name && limit.end == end)
            return &limit;
    }
    return nullptr;
}

/// Whether the range ends where the argument's type does.
bool endsWithItsType(const Argument& argument, End end) {
    if (argument.kind == ArgumentKind::Integer) {
        using Int = std::numeric_limits<std::int32_t>;
        return end == End::Least ? argument.least == Int::min() : argument.greatest == Int::max();
    }
    return argument.kind != ArgumentKind::Float;
}

/// The errors of the pictures that fail.
std::vector<ErrorNumber> errorsOf(const FilterEntry& entry, const Values& values,
                                  const std::vector<Picture>& pictures) {
    std::vector<ErrorNumber> errors;
    for (const Picture& picture : pictures) {
        const FilterOutcome outcome = outcomeOf(entry, values, textureOf(1, 1), picture);
        if (outcome.error) errors.push_back(*outcome.error);
    }
    return errors;
}

/// These two limits need a picture or a proof of their own.
bool isProvenApart(const FilterEntry& entry, const Argument& argument, End end) {
    return (entry.name == "Pixelize" && end == End::Greatest) ||
           (argument.name == "xyStep" && end == End::Least);
}

TEST(CatalogueLimits, BeyondEachLimitSomePictureFails) {
    const std::vector<Picture> pictures = lawPictures();
    for (const FilterEntry& entry : kFilterCatalogue) {
        std::size_t i = 0;
        for (const Argument& argument : entry.arguments()) {
            const std::size_t at = i++;
            for (const End end : {End::Least, End::Greatest}) {
                if (endsWithItsType(argument, end) || isProvenApart(entry, argument, end)) continue;
                const double limit = end == End::Least ? argument.least : argument.greatest;
                const double outward = end == End::Least ? -1 : 1;
                Values values = presetsOf(entry);
                values[at] = limit + outward;
                if (const LooseLimit* loose = looseLimit(entry, argument, end)) values = loose->values;
                SCOPED_TRACE(callText(entry, values));

                EXPECT_GT((values[at] - limit) * outward, 0) << "not beyond the limit";
                EXPECT_FALSE(errorsOf(entry, values, pictures).empty());
                if (argument.kind == ArgumentKind::Float) continue;
                values[at] -= outward;
                EXPECT_TRUE(errorsOf(entry, values, pictures).empty())
                    << "one step inward of " << argument.name;
            }
        }
    }
}

TEST(CatalogueLimits, WhatARangeLeavesOutDividesByZero) {
    int tested = 0;
    for (const FilterEntry& entry : kFilterCatalogue) {
        std::size_t i = 0;
        for (const Argument& argument : entry.arguments()) {
            const std::size_t at = i++;
            if (!argument.except) continue;
            Values values = presetsOf(entry);
            values[at] = *argument.except;
            const auto errors = errorsOf(entry, values, {textureOf(3, 3)});
            EXPECT_EQ(errors, std::vector{ErrorNumber::DivisionByZero}) << entry.name;
            ++tested;
        }
    }
    EXPECT_EQ(tested, 2);
}

// 2903 x 2903 white pixels: the sums of their blocks and of the whole picture are the first that no longer
// fit 32 bits. The mean of the whole then comes out as -254, the lowest of all.
TEST(CatalogueLimits, HoldWhereSumsWrap) {
    const Picture white(2903, 2903, {255, 255, 255, test::kSentinel});
    const auto fails = [&](const FilterEntry& entry, double value) {
        return !errorsOf(entry, {value}, {white}).empty();
    };
    const FilterEntry& contrast = entryOf("Contrast");
    EXPECT_FALSE(fails(contrast, contrast.arguments()[0].least));
    EXPECT_FALSE(fails(contrast, contrast.arguments()[0].greatest));
    EXPECT_TRUE(fails(contrast, -421902526));
    EXPECT_TRUE(fails(contrast, 421902426));

    const FilterEntry& pixelize = entryOf("Pixelize");
    EXPECT_FALSE(fails(pixelize, pixelize.arguments()[0].greatest));
    EXPECT_TRUE(fails(pixelize, pixelize.arguments()[0].greatest + 1));
}

TEST(CatalogueLimitsDeathTest, ANoiseStepOfZeroNeverEnds) {
    const auto runWithLittleTime = [] {
        const rlimit oneSecond = {1, 2};
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CPU, &oneSecond);
        setrlimit(RLIMIT_CORE, &noCore);
        cDIB surface;
        toSurface(textureOf(1, 1), surface);
        cDIBFilter().Noise(surface, 5, 0);
        std::exit(0);
    };
    EXPECT_EXIT(runWithLittleTime(), testing::KilledBySignal(SIGXCPU), "");
}

}  // namespace
}  // namespace mobrel
