// SPDX-License-Identifier: MIT
// The reducers give the pixels, map and events of their recipes with each set of instructions that this
// processor has, and with none.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "imaging/WeightedGrey.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "imaging/grey_vectors.hpp"
#include "support/DitherRecipes.hpp"
#include "support/EventLog.hpp"
#include "support/OnlyTarget.hpp"
#include "support/PaletteRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using recipes::IndexMap;
using test::EventLog;
using test::Picture;
using test::PictureSize;

/// What a reducer does, and its recipe.
struct Work {
    const char* name;
    std::function<void(cDIBDither&, cDIB&)> reduce;
    std::function<void(Picture&, IndexMap&, EventLog&)> recipe;
};

Work blackAndWhite(std::int32_t weight) {
    return {
        "black and white", [=](cDIBDither& d, cDIB& s) { d.DitherToBlackAndWhite(s, weight); },
        [=](Picture& p, IndexMap& m, EventLog& log) { recipes::ditherToBlackAndWhite(p, m, weight, log); }};
}

Work greys(const char* name, void (cDIBPal::*create)(), recipes::Palette (*recipe)(), bool diffuse) {
    return {name,
            [=](cDIBDither& d, cDIB& s) {
                cDIBPal palette;
                (palette.*create)();
                d.DitherToGreyPalette(s, palette, diffuse);
            },
            [=](Picture& p, IndexMap& m, EventLog& log) {
                recipes::ditherToGreyPalette(p, m, recipe(), diffuse, log);
            }};
}

Work colours(const char* name, void (cDIBPal::*create)(), recipes::Palette (*recipe)()) {
    return {name,
            [=](cDIBDither& d, cDIB& s) {
                cDIBPal palette;
                (palette.*create)();
                d.DitherToColorPalette(s, palette, true);
            },
            [=](Picture& p, IndexMap& m, EventLog& log) {
                recipes::ditherToColorPalette(p, m, recipe(), true, log);
            }};
}

/// By samples of the picture itself, whose byte 3 goes to the palette and back.
Work sampledColours() {
    return {"sampled colours",
            [](cDIBDither& d, cDIB& s) {
                cDIBPal palette;
                palette.CreateFastOptimal_016(s);
                d.DitherToColorPalette(s, palette, true);
            },
            [](Picture& p, IndexMap& m, EventLog& log) {
                recipes::ditherToColorPalette(p, m, recipes::createFastOptimal016(p), true, log);
            }};
}

/// Each width up to some beyond a block of steps, each height up to three bands of the widest vectors.
std::vector<PictureSize> sizes() {
    std::vector<PictureSize> all;
    for (int width = 1; width <= 70; ++width) all.push_back({width, 1 + width * 7 % 19});
    for (int height = 1; height <= 35; ++height) all.push_back({6, height});
    for (const int width : {127, 128, 129, 191, 192, 193}) all.push_back({width, 17});
    return all;
}

void expectAlike(const Work& work, const Picture& picture) {
    Picture expected = picture;
    IndexMap map;
    EventLog expectedLog;
    work.recipe(expected, map, expectedLog);
    test::forEachTarget([&] {
        cDIB surface;
        toSurface(picture, surface);
        cDIBDither dither;
        EventLog log;
        log.attach(dither);
        work.reduce(dither, surface);
        ASSERT_EQ(firstDifference(expected, test::fromSurface(surface)), "");
        ASSERT_EQ(std::vector(dither.PalID().begin(), dither.PalID().end()), map.bytes);
        ASSERT_EQ(log, expectedLog);
    });
}

TEST(ReducerProcessors, AllGiveTheSameBytes) {
    const std::vector<Work> works = {
        blackAndWhite(15),
        blackAndWhite(-3),
        greys("2 greys", &cDIBPal::CreateBlackAndWhite, recipes::createBlackAndWhite, true),
        greys("16 greys", &cDIBPal::CreateGreys_016, recipes::createGreys016, true),
        greys("256 greys", &cDIBPal::CreateGreys_256, recipes::createGreys256, false),
        colours("16 colours", &cDIBPal::CreateEGA, recipes::createEGA),
        colours("256 colours", &cDIBPal::CreateWebsafe, recipes::createWebsafe),
        sampledColours(),
    };
    for (const PictureSize& size : sizes()) {
        for (const auto& [name, picture] : test::sweepPictures(size)) {
            SCOPED_TRACE(name);
            for (const Work& work : works) {
                SCOPED_TRACE(work.name);
                expectAlike(work, picture);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

// Whole numbers and double precision tell the same grey for every colour whose sum is on no tie.
TEST(ReducerProcessors, WeighEveryColour) {
    constexpr std::size_t kRow = 256;
    test::forEachTarget([&] {
        for (int colour = 0; colour < 1 << 24; colour += kRow) {
            std::vector<std::uint8_t> row(kRow * 4);
            for (std::size_t x = 0; x < kRow; ++x) {
                row[x * 4] = static_cast<std::uint8_t>(x);
                row[x * 4 + 1] = static_cast<std::uint8_t>(colour >> 8);
                row[x * 4 + 2] = static_cast<std::uint8_t>(colour >> 16);
            }
            std::vector<std::uint8_t> weighed = row;
            for (std::size_t x = 0; x < kRow; x += 16) {
                const std::size_t done = greyUntilTie(weighed.data() + x * 4, 16);
                for (std::size_t i = x; i < x + done; ++i) {
                    ASSERT_EQ(weighed[i * 4], weightedGrey(row.data() + i * 4))
                        << (colour | static_cast<int>(i));
                }
            }
        }
    });
}

}  // namespace
}  // namespace mobrel
