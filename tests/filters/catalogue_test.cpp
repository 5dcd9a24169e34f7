// SPDX-License-Identifier: MIT
// Every row of the catalogue against the common laws of the filters, by way of its call.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "platform/base/RuntimeError.hpp"
#include "support/EventLog.hpp"
#include "support/FilterRun.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::callText;
using test::entryOf;
using test::EventLog;
using test::FilterOutcome;
using test::lawPictures;
using test::outcomeOf;
using test::Picture;
using test::Pixel;
using test::presetsOf;
using test::textureOf;
using test::Values;

/// Where a range ends, and both sides of what it leaves out.
std::vector<double> extremesOf(const Argument& argument) {
    std::vector<double> extremes = {argument.least, argument.greatest};
    if (argument.except) {
        extremes.push_back(*argument.except - 1);
        extremes.push_back(*argument.except + 1);
    }
    return extremes;
}

/// Every combination of the extremes of all arguments.
std::vector<Values> extremeValues(const FilterEntry& entry) {
    std::vector<Values> all = {Values{}};
    std::size_t i = 0;
    for (const Argument& argument : entry.arguments()) {
        std::vector<Values> longer;
        for (Values values : all) {
            for (const double extreme : extremesOf(argument)) {
                values[i] = extreme;
                longer.push_back(values);
            }
        }
        all = longer;
        ++i;
    }
    return all;
}

bool isOnRing(const Picture& picture, int x, int y) {
    return x == 0 || y == 0 || x == picture.width - 1 || y == picture.height - 1;
}

/// Whether any pixel of the outermost ring differs.
bool ringDiffers(const Picture& a, const Picture& b) {
    for (int y = 0; y < a.height; ++y) {
        for (int x = 0; x < a.width; ++x) {
            if (isOnRing(a, x, y) && a.at(x, y) != b.at(x, y)) return true;
        }
    }
    return false;
}

bool keepsByte3(const Picture& picture) {
    return std::all_of(picture.pixels.begin(), picture.pixels.end(),
                       [](const Pixel& pixel) { return pixel[3] == test::kSentinel; });
}

TEST(Catalogue, HoldsItsLawsWhereRangesEnd) {
    const std::vector<Picture> pictures = lawPictures();
    const Picture texture = textureOf(3, 2);
    for (const FilterEntry& entry : kFilterCatalogue) {
        bool ringChanged = false;
        for (const Values& values : extremeValues(entry)) {
            SCOPED_TRACE(callText(entry, values));
            for (const Picture& picture : pictures) {
                const FilterOutcome outcome = outcomeOf(entry, values, texture, picture);
                ASSERT_FALSE(outcome.error) << picture.width << 'x' << picture.height;
                ASSERT_TRUE(keepsByte3(outcome.picture));
                ringChanged = ringChanged || ringDiffers(picture, outcome.picture);
            }
        }
        EXPECT_EQ(ringChanged, entry.border == Border::Changed) << entry.name;
    }
}

TEST(Catalogue, PresetsLieInTheirRanges) {
    for (const FilterEntry& entry : kFilterCatalogue) {
        for (const Argument& argument : entry.arguments()) {
            if (!argument.preset) continue;
            EXPECT_GE(*argument.preset, argument.least) << entry.name << ' ' << argument.name;
            EXPECT_LE(*argument.preset, argument.greatest) << entry.name << ' ' << argument.name;
            EXPECT_NE(argument.preset, argument.except) << entry.name << ' ' << argument.name;
        }
    }
}

/// The rows that a run visits, by the row's border and cadence.
struct Rows {
    int first;
    int last;
    int step;
};

int stepOf(const FilterEntry& entry, const Values& values, const Picture& texture) {
    if (entry.cadence != Cadence::EachStep) return 1;
    if (entry.name == "Diffuse") return static_cast<int>(values[2]);
    if (entry.name == "Noise") return static_cast<int>(values[1]);
    if (entry.name == "Texturize") return texture.height;
    return 2;
}

Rows rowsOf(const FilterEntry& entry, int step, int height) {
    Rows rows = {0, height - 1, step};
    if (entry.border == Border::Spared) rows = {1, height - 2, step};
    // What works on pairs of rows ends a row earlier.
    if (entry.name == "SaltAndPepperRemoval" || entry.name == "ScanLines") --rows.last;
    return rows;
}

std::string expectedEvents(const FilterEntry& entry, const Rows& rows, bool reliefIsCut) {
    EventLog log;
    const auto shared = [&](int passes) {
        const int visited = rows.last < rows.first ? 0 : rows.last - rows.first + 1;
        const int events = passes * visited - (reliefIsCut ? 1 : 0);
        for (int i = 1; i <= events; ++i) {
            log.progress(static_cast<int>(std::nearbyint(static_cast<double>(i) / passes)));
        }
    };
    switch (entry.cadence) {
        case Cadence::EachRow:
        case Cadence::EachStep:
            for (int y = rows.first; y <= rows.last; y += rows.step) log.progress(y);
            break;
        case Cadence::HalfRows:
            shared(2);
            break;
        case Cadence::QuarterRows:
            shared(4);
            break;
    }
    log.progressEnd();
    return log.toString();
}

/// The presets, with every small step and both booleans.
std::vector<Values> cadenceValues(const FilterEntry& entry) {
    std::vector<Values> all = {presetsOf(entry)};
    for (std::size_t i = 0; i < entry.argumentCount; ++i) {
        Values values = presetsOf(entry);
        const Argument& argument = entry.arguments()[i];
        if (argument.kind == ArgumentKind::Boolean) values[i] = 1 - values[i];
        if (argument.name.ends_with("Step")) values[i] = 3;
        if (values != all.front()) all.push_back(values);
    }
    return all;
}

TEST(Catalogue, EventsFollowTheCadence) {
    for (const FilterEntry& entry : kFilterCatalogue) {
        for (const Values& values : cadenceValues(entry)) {
            SCOPED_TRACE(callText(entry, values));
            for (int height = 1; height <= 13; ++height) {
                const Picture texture = textureOf(2, 1 + height % 5);
                const Rows rows = rowsOf(entry, stepOf(entry, values, texture), height);
                const bool isRelief = entry.name == "Emboss" || entry.name == "Engrave";
                const bool reliefIsCut = isRelief && values[1] == 0;
                const FilterOutcome outcome = outcomeOf(entry, values, texture, textureOf(5, height));
                EXPECT_EQ(outcome.events, expectedEvents(entry, rows, reliefIsCut)) << "height " << height;
            }
        }
    }
}

// Values that give another picture when two of them change places.
struct Distinct {
    std::string_view operation;
    Values values;
};
constexpr Distinct kDistinct[] = {
    {"Blur", {90}},
    {"Contrast", {60}},
    {"Colorize", {0.5, 0.25, 0.75}},
    {"Diffuse", {6, 1, 2}},
    {"Emboss", {150, 0}},
    {"Engrave", {150, 0}},
    {"Noise", {60, 3}},
    {"Outline", {-60, 20}},
    {"Pixelize", {3}},
    {"Relieve", {80}},
    {"ReplaceHS", {0x4060A0, 0xF01020, 150, 30, 40}},
    {"ReplaceL", {0x4060A0, 0xF01020, 150, 20}},
    {"SaltAndPepperRemoval", {40}},
    {"Saturation", {60}},
    {"ScanLines", {30, 70}},
    {"Sharpen", {90}},
    {"Shift", {0x4060A0, 60, 150}},
    {"ShiftRGB", {20, -10, 35}},
    {"Soften", {90}},
};

Values distinctValues(const FilterEntry& entry) {
    for (const Distinct& distinct : kDistinct) {
        if (distinct.operation == entry.name) return distinct.values;
    }
    return {};
}

TEST(Catalogue, CallsTheOperationOfTheNameWithItsArgumentsInOrder) {
    const Picture picture = textureOf(40, 30);
    const Picture texture = textureOf(7, 5);
    for (const FilterEntry& entry : kFilterCatalogue) {
        const Values values = distinctValues(entry);
        Picture expected = picture;
        EventLog log;
        recipes::callRecipe(entry.name, expected, values, texture, log);
        EXPECT_NE(expected, picture) << entry.name << ": the case shows nothing";
        EXPECT_EQ(firstDifference(expected, outcomeOf(entry, values, texture, picture).picture), "")
            << entry.name;
    }
}

TEST(Catalogue, RefusesATextureThatIsNotThere) {
    cDIB surface;
    toSurface(textureOf(2, 2), surface);
    cDIBFilter filter;
    try {
        entryOf("Texturize").apply(filter, surface, {});
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::InvalidCall);
    }
}

TEST(Catalogue, AnEmptyTextureDoesNothing) {
    const Picture picture = textureOf(3, 3);
    const FilterOutcome outcome = outcomeOf(entryOf("Texturize"), {}, Picture(), picture);
    EXPECT_EQ(outcome.picture, picture);
    EXPECT_EQ(outcome.events, "");
}

}  // namespace
}  // namespace mobrel
