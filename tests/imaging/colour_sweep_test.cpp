// SPDX-License-Identifier: MIT
// Palettes, reducers and depth commands against their plain recipes, over sweeps of sizes and pictures.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "imaging/ColourDepth.hpp"
#include "imaging/PictureInfo.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/base/RandomSource.hpp"
#include "support/DitherRecipes.hpp"
#include "support/EventLog.hpp"
#include "support/PaletteRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using recipes::Palette;
using test::EventLog;
using test::Picture;
using test::PictureSize;

/// Widths around every packing boundary, slim and small pictures, and some that are shrunk for a palette.
std::vector<PictureSize> sizes() {
    std::vector<PictureSize> all;
    for (const int width : {5, 6, 7, 8, 10, 15, 16, 17, 31, 32, 33}) all.push_back({width, 5});
    for (int height = 1; height <= 6; ++height) {
        for (const int width : {1, 2, 3, 4, 9}) all.push_back({width, height});
    }
    for (const PictureSize size :
         {PictureSize{63, 4}, {64, 4}, {65, 4}, {1, 40}, {160, 90}, {151, 149}, {200, 3}}) {
        all.push_back(size);
    }
    return all;
}

Palette entriesOf(const cDIBPal& palette) {
    Palette entries;
    entries.entries.resize(static_cast<std::size_t>(palette.Count()));
    if (palette.Count() > 0) {
        std::memcpy(entries.entries.data(), palette.PalettePtr(), entries.entries.size() * 4);
    }
    return entries;
}

TEST(Palettes, FixedOnesAreThoseOfTheRecipes) {
    struct Case {
        const char* name;
        void (cDIBPal::*create)();
        Palette (*recipe)();
    };
    const Case cases[] = {
        {"BlackAndWhite", &cDIBPal::CreateBlackAndWhite, recipes::createBlackAndWhite},
        {"EGA", &cDIBPal::CreateEGA, recipes::createEGA},
        {"Halftone", &cDIBPal::CreateHalftone, recipes::createHalftone},
        {"Websafe", &cDIBPal::CreateWebsafe, recipes::createWebsafe},
        {"Greys_016", &cDIBPal::CreateGreys_016, recipes::createGreys016},
        {"Greys_256", &cDIBPal::CreateGreys_256, recipes::createGreys256},
    };
    for (const auto& [name, create, recipe] : cases) {
        cDIBPal palette;
        (palette.*create)();
        EXPECT_EQ(entriesOf(palette), recipe()) << name;
        EXPECT_EQ(palette.IsGreyScale(), recipes::isGreyScale(recipe())) << name;
    }
}

TEST(Palettes, FittedOnesAreThoseOfTheRecipes) {
    struct Weights {
        int size, levels;
        float r, g, b;
    };
    for (const auto& size : sizes()) {
        for (const auto& [name, picture] : test::sweepPictures(size)) {
            cDIB surface;
            toSurface(picture, surface);
            cDIBPal palette;
            palette.CreateFastOptimal_016(surface);
            EXPECT_EQ(entriesOf(palette), recipes::createFastOptimal016(picture)) << name;
            palette.CreateFastOptimal_256(surface);
            EXPECT_EQ(entriesOf(palette), recipes::createFastOptimal256(picture)) << name;
            for (const auto& [count, levels, r, g, b] : {Weights{16, 8, 0.36F, 0.436F, 0.341F},
                                                         {256, 8, 1, 1, 1},
                                                         {9, 3, 1, 0.5F, 0.25F},
                                                         {40, 5, 0.7F, 1, 1.3F}}) {
                palette.CreateOptimal(surface, count, levels, r, g, b);
                ASSERT_EQ(entriesOf(palette), recipes::createOptimal(picture, count, levels, r, g, b))
                    << name << ' ' << size.width << 'x' << size.height << ' ' << count;
            }
        }
    }
}

TEST(Palettes, FindTheNearestEntryAndTheLowestOfEquals) {
    RandomSource random;
    for (const int count : {1, 2, 3, 16, 17, 255, 256}) {
        cDIB surface;
        ASSERT_TRUE(surface.Create(16, 16, 0));
        // Few different values make ties and doubles common.
        for (int i = 0; i < 1024; ++i)
            surface.DIBitsPtr()[i] = static_cast<std::uint8_t>(static_cast<int>(random.next() * 6) * 51);
        cDIBPal palette;
        palette.CreateFastOptimal_256(surface);
        Palette entries = entriesOf(palette);
        entries.entries.resize(static_cast<std::size_t>(count));
        std::vector<RgbQuad> quads;
        for (const auto& entry : entries.entries) quads.push_back({entry[0], entry[1], entry[2], 0});
        const NearestByFullSearch nearest(quads);
        const ColourCube cube = nearest.cube();
        for (int i = 0; i < 4096; ++i) {
            const auto value = [i](int shift) { return static_cast<std::uint8_t>((i >> shift & 15) * 17); };
            const auto expected = recipes::closestColor(entries, value(0), value(4), value(8));
            ASSERT_EQ(nearest.index(value(0), value(4), value(8)), expected);
            ASSERT_EQ(cube[static_cast<std::size_t>(i)], expected);
        }
    }
}

TEST(Palettes, AnswerClosestColorOnlyWhenABuilderMadeThem) {
    cDIBPal palette;
    palette.InitializePalette(2);
    EXPECT_THROW(palette.ClosestColor(1, 2, 3), RuntimeError);
    palette.CreateEGA();
    EXPECT_EQ(palette.ClosestColor(250, 10, 120), (ClosestEntry{255, 0, 0, 9}));
    palette.Clear();
    EXPECT_THROW(palette.ClosestColor(1, 2, 3), RuntimeError);
    EXPECT_FALSE(palette.IsGreyScale());
}

TEST(Palettes, RefuseTreesThatCannotBe) {
    cDIB surface;
    toSurface(test::sweepPictures({30, 30}).front().picture, surface);
    cDIBPal palette;
    EXPECT_THROW(palette.CreateOptimal(surface, 256, 9, 1, 1, 1), RuntimeError);
    EXPECT_THROW(palette.CreateOptimal(surface, 256, 0, 1, 1, 1), RuntimeError);
    EXPECT_THROW(palette.CreateOptimal(surface, 4, 8, 1, 1, 1), RuntimeError);
}

struct ReducerCase {
    std::string name;
    std::function<void(cDIBDither&, cDIB&)> reduce;
    std::function<void(Picture&, recipes::IndexMap&, EventLog&)> recipe;
};

std::vector<ReducerCase> reducers() {
    std::vector<ReducerCase> cases;
    for (const std::int32_t weight : {15, 10, 1, 100, -7}) {
        cases.push_back({"BlackAndWhite " + std::to_string(weight),
                         [=](cDIBDither& d, cDIB& s) { d.DitherToBlackAndWhite(s, weight); },
                         [=](Picture& p, recipes::IndexMap& m, EventLog& log) {
                             recipes::ditherToBlackAndWhite(p, m, weight, log);
                         }});
    }
    const std::vector<std::pair<void (cDIBPal::*)(), Palette (*)()>> palettes = {
        {&cDIBPal::CreateBlackAndWhite, recipes::createBlackAndWhite},
        {&cDIBPal::CreateGreys_016, recipes::createGreys016},
        {&cDIBPal::CreateGreys_256, recipes::createGreys256},
        {&cDIBPal::CreateEGA, recipes::createEGA},
        {&cDIBPal::CreateWebsafe, recipes::createWebsafe},
        {&cDIBPal::CreateHalftone, recipes::createHalftone},
    };
    for (std::size_t i = 0; i < palettes.size(); ++i) {
        for (const bool diffuse : {true, false}) {
            const auto create = palettes[i].first;
            const auto recipe = palettes[i].second;
            const std::string suffix = std::to_string(i) + (diffuse ? " diffused" : "");
            cases.push_back({"Grey " + suffix,
                             [=](cDIBDither& d, cDIB& s) {
                                 cDIBPal palette;
                                 (palette.*create)();
                                 d.DitherToGreyPalette(s, palette, diffuse);
                             },
                             [=](Picture& p, recipes::IndexMap& m, EventLog& log) {
                                 recipes::ditherToGreyPalette(p, m, recipe(), diffuse, log);
                             }});
            cases.push_back({"Color " + suffix,
                             [=](cDIBDither& d, cDIB& s) {
                                 cDIBPal palette;
                                 (palette.*create)();
                                 d.DitherToColorPalette(s, palette, diffuse);
                             },
                             [=](Picture& p, recipes::IndexMap& m, EventLog& log) {
                                 recipes::ditherToColorPalette(p, m, recipe(), diffuse, log);
                             }});
        }
    }
    cases.push_back(
        {"TrueColor", [](cDIBDither& d, cDIB& s) { d.DitherToTrueColor(s); },
         [](Picture& p, recipes::IndexMap&, EventLog& log) { recipes::ditherToTrueColor(p, log); }});
    return cases;
}

std::vector<std::uint8_t> mapOf(const cDIBDither& dither) {
    return {dither.PalID().begin(), dither.PalID().end()};
}

TEST(Reducers, GiveThePixelsMapAndEventsOfTheirRecipes) {
    for (const auto& reducer : reducers()) {
        for (const auto& size : sizes()) {
            for (const auto& [name, picture] : test::sweepPictures(size)) {
                Picture expected = picture;
                recipes::IndexMap expectedMap;
                EventLog expectedLog;
                reducer.recipe(expected, expectedMap, expectedLog);

                cDIB surface;
                toSurface(picture, surface);
                cDIBDither dither;
                EventLog log;
                log.attach(dither);
                reducer.reduce(dither, surface);
                const std::string where = reducer.name + ", " + name + ' ' + std::to_string(size.width) +
                                          'x' + std::to_string(size.height);
                ASSERT_EQ(firstDifference(expected, test::fromSurface(surface)), "") << where;
                ASSERT_EQ(mapOf(dither), expectedMap.bytes) << where;
                ASSERT_EQ(log, expectedLog) << where;
            }
        }
    }
}

TEST(Reducers, DoNothingOnAnEmptySurface) {
    for (const auto& reducer : reducers()) {
        cDIB surface;
        cDIBDither dither;
        EventLog log;
        log.attach(dither);
        reducer.reduce(dither, surface);
        EXPECT_TRUE(log.isEmpty()) << reducer.name;
        EXPECT_TRUE(dither.PalID().empty()) << reducer.name;
    }
}

int errorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

TEST(Reducers, TellErrorsWithTheirNumbers) {
    cDIB surface;
    ASSERT_TRUE(surface.Create(3, 3, 0));
    cDIBDither dither;
    cDIBPal odd;
    odd.InitializePalette(17);
    cDIBPal loaded;
    loaded.InitializePalette(16);
    EXPECT_EQ(errorOf([&] { dither.DitherToBlackAndWhite(surface, 0); }), 11);
    EXPECT_EQ(errorOf([&] { dither.DitherToGreyPalette(surface, odd, true); }), 5);
    EXPECT_EQ(errorOf([&] { dither.DitherToColorPalette(surface, odd, true); }), 5);
    EXPECT_EQ(errorOf([&] { dither.DitherToColorPalette(surface, loaded, true); }), 91);
}

TEST(CountColors, CountsAsItsRecipe) {
    cDIBDither dither;
    for (const auto& size : sizes()) {
        for (const auto& [name, picture] : test::sweepPictures(size)) {
            cDIB surface;
            toSurface(picture, surface);
            ASSERT_EQ(dither.CountColors(surface), recipes::countColors(picture)) << name;
        }
    }
    cDIB empty;
    EXPECT_EQ(dither.CountColors(empty), 0);
}

// Each pixel has a pair of red and blue of its own, so the count ends before the 32,768th.
TEST(CountColors, FallsShortBehindTheLastPair) {
    Picture picture(256, 256);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x)
            picture.at(x, y) = {static_cast<std::uint8_t>(x), 7, static_cast<std::uint8_t>(y), 0};
    }
    cDIB surface;
    toSurface(picture, surface);
    EXPECT_EQ(cDIBDither().CountColors(surface), 32767);
    EXPECT_EQ(recipes::countColors(picture), 32767);
}

/// A document as the depth commands see it, and its recipe's.
struct DepthRun {
    explicit DepthRun(const Picture& picture) {
        toSurface(picture, surface);
        expected.picture = picture;
        log.attach(dither);
    }

    void run(int index) {
        changeDepth(DepthCommand{index}, {surface, palette, dither, bpp},
                    [this](bool on) { hourglass += on ? 1 : -1; });
        recipes::depthCommand(expected, index, expectedLog);
    }

    void check(const std::string& where) const {
        ASSERT_EQ(firstDifference(expected.picture, test::fromSurface(surface)), "") << where;
        ASSERT_EQ(entriesOf(palette), expected.palette) << where;
        ASSERT_EQ(mapOf(dither), expected.map.bytes) << where;
        ASSERT_EQ(int{bpp}, expected.BPP) << where;
        ASSERT_EQ(log, expectedLog) << where;
        ASSERT_EQ(hourglass, 0) << where;
    }

    cDIB surface;
    cDIBPal palette;
    cDIBDither dither;
    std::uint8_t bpp = 0;
    int hourglass = 0;
    EventLog log;
    recipes::Document expected;
    EventLog expectedLog;
};

TEST(DepthCommands, FollowTheirRecipesAloneAndAfterEachOther) {
    for (const auto& size : {PictureSize{40, 30}, {7, 5}, {1, 1}, {1, 9}, {9, 1}, {33, 4}, {180, 70}}) {
        for (const auto& [name, picture] : test::sweepPictures(size)) {
            for (int first = -1; first <= 9; ++first) {
                for (const int second : {5, 6, 1, 8}) {
                    DepthRun document(picture);
                    const std::string where =
                        name + ' ' + std::to_string(size.width) + ": " + std::to_string(first);
                    document.run(first);
                    document.check(where);
                    document.run(second);
                    document.check(where + ", " + std::to_string(second));
                    if (testing::Test::HasFatalFailure()) return;
                }
            }
        }
    }
}

// Shrunk to 150 pixels, such a picture would have no height left; one line of it is taken.
TEST(DepthCommands, SlimPicturesKeepTheirColours) {
    for (const auto& [width, height] : {PictureSize{1000, 1}, {1, 1000}, {2000, 3}}) {
        Picture picture(width, height, {10, 200, 30, 0});
        DepthRun document(picture);
        changeDepth(DepthCommand::Colors256,
                    {document.surface, document.palette, document.dither, document.bpp}, [](bool) {});
        EXPECT_EQ(firstDifference(picture, test::fromSurface(document.surface)), "");
        EXPECT_EQ(document.palette.rgbG(0), 200);
    }
}

TEST(DepthCommands, LeaveAnEmptySurfaceEmpty) {
    for (int index = 0; index <= 8; ++index) {
        DepthRun document{Picture()};
        changeDepth(DepthCommand{index}, {document.surface, document.palette, document.dither, document.bpp},
                    [](bool) {});
        EXPECT_EQ(document.surface.hDIB(), nullptr);
        EXPECT_TRUE(document.log.isEmpty());
    }
}

TEST(DepthLabels, TellDepthAndSizeInTheirWords) {
    EXPECT_EQ(paletteLabel(1, true), "Black and White");
    EXPECT_EQ(paletteLabel(1, false), "2 colors");
    EXPECT_EQ(paletteLabel(4, true), "16 greys");
    EXPECT_EQ(paletteLabel(8, false), "256 colors");
    EXPECT_EQ(paletteLabel(24, false), "None");
    EXPECT_EQ(paletteLabel(0, true), "");
    struct Case {
        int width, height, bpp;
        std::int32_t bytes;
        const char* label;
    };
    for (const auto& c : {Case{10, 10, 1, 102, "0.1 Kb"},
                          {640, 480, 24, 921654, "900.1 Kb"},
                          {3, 2, 24, 78, "0.1 Kb"},
                          {33, 2, 4, 158, "0.2 Kb"},
                          {1, 1, 8, 1082, "1.1 Kb"}}) {
        EXPECT_EQ(pvCalcSize(c.width, c.height, c.bpp), c.bytes);
        EXPECT_EQ(bitmapSizeLabel(c.bytes), c.label);
    }
}

}  // namespace
}  // namespace mobrel
