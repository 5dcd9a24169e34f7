// SPDX-License-Identifier: MIT
// Pins the recipes of palettes and colour reduction to examples worked out by hand.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "support/DitherRecipes.hpp"
#include "support/PaletteRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::recipes {
namespace {

using test::firstDifference;
using test::kSentinel;
using test::Pixel;

Pixel grey(int value, std::uint8_t byte3) {
    const auto byte = static_cast<std::uint8_t>(value);
    return {byte, byte, byte, byte3};
}

/// A picture from its rows, y = 0 first, with a bar between two. A pixel is its four bytes with points
/// between them, or one number for a grey with kSentinel in byte 3.
Picture picture(const std::string& text) {
    Picture made;
    std::istringstream rows(text);
    for (std::string row; std::getline(rows, row, '|'); ++made.height) {
        std::istringstream pixels(row);
        made.width = 0;
        for (std::string pixel; pixels >> pixel; ++made.width) {
            std::istringstream bytes(pixel);
            std::vector<int> values;
            for (std::string byte; std::getline(bytes, byte, '.');) values.push_back(std::stoi(byte));
            Pixel& added = made.pixels.emplace_back(grey(values.at(0), kSentinel));
            if (values.size() == 1) continue;
            for (std::size_t i = 0; i < 4; ++i) added.at(i) = static_cast<std::uint8_t>(values.at(i));
        }
    }
    return made;
}

/// The entries, written as the pixels of a picture, and black ones up to `count`.
Palette paletteOf(const std::string& text, std::size_t count) {
    std::vector<Entry> entries = picture(text).pixels;
    entries.resize(count, Entry{0, 0, 0, 0});
    return {entries};
}

/// Some of the entries, by index.
Palette picked(const Palette& palette, const std::vector<std::size_t>& indices) {
    Palette part;
    for (const std::size_t index : indices) part.entries.push_back(palette.entries.at(index));
    return part;
}

/// Two digits a byte.
std::string hexOf(const IndexMap& map) {
    std::string text;
    for (const std::uint8_t byte : map.bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", byte);
        text += digits;
    }
    return text;
}

/// The number of the error that the call ends with, 0 for none.
int errorOf(const std::function<void()>& call) {
    try {
        call();
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
}

TEST(PaletteRecipes, FixedPalettes) {
    EXPECT_EQ(createBlackAndWhite(), paletteOf("0.0.0.0 255.255.255.0", 2));
    EXPECT_EQ(createEGA(),
              paletteOf("0.0.0.0 0.0.128.0 0.128.0.0 0.128.128.0 128.0.0.0 128.0.128.0 128.128.0.0 "
                        "192.192.192.0 128.128.128.0 0.0.255.0 0.255.0.0 0.255.255.0 255.0.0.0 255.0.255.0 "
                        "255.255.0.0 255.255.255.0",
                        16));
    EXPECT_EQ(picked(createHalftone(), {1, 5, 25, 38, 124, 125, 255}),
              paletteOf("0.0.64.0 0.64.0.0 64.0.0.0 64.128.192.0 255.255.255.0 0.0.0.0 0.0.0.0", 7));
    // The blocks' ends, and what follows the black and the red that are skipped.
    EXPECT_EQ(picked(createWebsafe(), {0, 7, 8, 12, 248, 255}),
              paletteOf("0.0.0.0 192.192.192.0 0.0.51.0 0.51.0.0 128.128.128.0 255.255.255.0", 6));
    // 32 colours for blue 0, then 36 each for blue 51 to 204, then 32 for 255, black and the greys.
    EXPECT_EQ(picked(createWebsafe(), {40, 183, 184, 215, 216, 217, 247}),
              paletteOf("51.0.0.0 204.255.255.0 255.0.51.0 255.255.204.0 0.0.0.0 8.8.8.0 248.248.248.0", 7));
    EXPECT_EQ(picked(createGreys016(), {0, 3, 15}), paletteOf("0.0.0.0 51.51.51.0 255.255.255.0", 3));
    EXPECT_EQ(picked(createGreys256(), {0, 3, 255}), paletteOf("0.0.0.0 3.3.3.0 255.255.255.0", 3));
    EXPECT_EQ(createGreys016().entries.size(), 16U);
    for (const Palette& palette : {createHalftone(), createWebsafe(), createGreys256()}) {
        EXPECT_EQ(palette.entries.size(), 256U);
    }
}

TEST(PaletteRecipes, FastOptimalSamplesThePicture) {
    // Eight lines from the top give 0, 2, 4, 6: a centre on the edge of two lines takes the upper one.
    Picture numbered(7, 8);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 7; ++x) {
            numbered.at(x, y) = {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), 9, 5};
        }
    }
    EXPECT_EQ(createFastOptimal016(numbered),
              paletteOf("0.1.9.5 2.1.9.5 4.1.9.5 6.1.9.5 0.3.9.5 2.3.9.5 4.3.9.5 6.3.9.5 "
                        "0.5.9.5 2.5.9.5 4.5.9.5 6.5.9.5 0.7.9.5 2.7.9.5 4.7.9.5 6.7.9.5",
                        16));

    const Palette two = createFastOptimal256(picture("1.2.3.4 | 5.6.7.8"));
    ASSERT_EQ(two.entries.size(), 256U);
    for (std::size_t i = 0; i < 256; ++i) {
        EXPECT_EQ(two.entries[i], i < 128 ? (Entry{1, 2, 3, 4}) : (Entry{5, 6, 7, 8})) << i;
    }
    EXPECT_EQ(createFastOptimal016({}), paletteOf("", 16));
}

/// A palette colour by colour from numbers of red, and black up to `count`.
Palette redsOf(const std::vector<std::uint8_t>& values, std::size_t count) {
    Palette palette = paletteOf("", count);
    for (std::size_t i = 0; i < values.size(); ++i) palette.entries.at(i) = {0, 0, values[i], 0};
    return palette;
}

/// One row of pixels that differ in red only.
Picture reds(const std::vector<std::uint8_t>& values) {
    Picture row(static_cast<int>(values.size()), 1);
    row.pixels = redsOf(values, values.size()).entries;
    return row;
}

TEST(PaletteRecipes, OptimalWorkedExamples) {
    const auto optimal = [](const Picture& D, std::int32_t PalSize, int nLevels) {
        return createOptimal(D, PalSize, nLevels, 1, 1, 1);
    };
    EXPECT_EQ(optimal({}, 4, 8), paletteOf("", 4));
    EXPECT_EQ(optimal(picture("10.20.30.9 | 10.20.30.9"), 16, 8), paletteOf("10.20.30.0", 16));
    // By falling count.
    EXPECT_EQ(optimal(reds({0, 255, 255}), 16, 1), redsOf({255, 0}, 16));
    // Equal counts come in the order that the exchanges leave: of 7, red, blue and green first blue goes to
    // the place of 7, then green to that, then blue to the place of red.
    EXPECT_EQ(optimal(picture("7.7.7.0 0.0.129.0 255.0.0.0 0.255.0.0 255.0.0.0 0.255.0.0 0.255.0.0"), 16, 1),
              paletteOf("0.255.0.0 255.0.0.0 7.7.7.0 0.0.129.0", 16));
    // 128 lies in the lower half.
    EXPECT_EQ(optimal(reds({0, 128, 128, 128}), 16, 1), redsOf({96}, 16));
    EXPECT_EQ(optimal(reds({0, 129, 129}), 16, 1), redsOf({129, 0}, 16));
    // Means of 1.5, 2.5 and 0.5.
    EXPECT_EQ(optimal(picture("1.2.0.0 2.3.1.0"), 16, 1), paletteOf("2.2.0.0", 16));
    // Node 5 (200) is merged before node 2 (10, 100), as it came later. A merged node takes more pixels,
    // and with three (700 / 3) it comes before the root, which has two children.
    EXPECT_EQ(optimal(reds({10, 100, 200}), 2, 2), redsOf({55, 200}, 2));
    EXPECT_EQ(optimal(reds({10, 100, 200, 250}), 2, 2), redsOf({55, 225}, 2));
    EXPECT_EQ(optimal(reds({10, 100, 200, 250, 250}), 2, 2), redsOf({233, 55}, 2));
    // 200 and 250 meet under the node entered last at the deepest level that has one. 100 then takes the
    // two nodes set free, and 10 and 40 are merged.
    EXPECT_EQ(optimal(reds({10, 40, 200, 250}), 3, 3), redsOf({225, 10, 40}, 3));
    EXPECT_EQ(optimal(reds({10, 40, 200, 250, 100}), 3, 3), redsOf({25, 225, 100}, 3));
    // Blue takes node 7, set free by the merging of 150 and 250, and so comes before green, node 8.
    EXPECT_EQ(optimal(picture("0.0.10.0 0.0.100.0 0.0.150.0 0.0.250.0 0.200.0.0 200.0.0.0"), 4, 2),
              paletteOf("0.0.55.0 0.0.200.0 200.0.0.0 0.200.0.0", 4));

    EXPECT_EQ(errorOf([&] { optimal(picture("0.0.0.0 0.0.255.0 255.0.0.0"), 2, 1); }), 9);
    EXPECT_EQ(errorOf([&] { optimal(reds({1}), 16, 10); }), 9);
}

TEST(PaletteRecipes, OptimalComparesWeightedValues) {
    const auto optimal = [](const Picture& D, int nLevels) {
        return createOptimal(D, 16, nLevels, 0.36F, 0.436F, 0.341F);
    };
    // 91.8, 111.2 and 87.0 all lie below the first midpoint; 127.5 rounds to 128.
    EXPECT_EQ(optimal(picture("0 255"), 1), paletteOf("128.128.128.0", 16));
    // The second midpoint is 64. Red 177 gives 63.7 and 178 gives 64.1, green 146 gives 63.7 and 147 gives
    // 64.1, blue 187 gives 63.8 and 188 gives 64.1.
    EXPECT_EQ(optimal(reds({0, 177}), 2), redsOf({88}, 16));
    EXPECT_EQ(optimal(reds({177, 178}), 2), redsOf({177, 178}, 16));
    EXPECT_EQ(optimal(picture("0.146.0.0 0.147.0.0"), 2), paletteOf("0.146.0.0 0.147.0.0", 16));
    EXPECT_EQ(optimal(picture("187.0.0.0 188.0.0.0"), 2), paletteOf("187.0.0.0 188.0.0.0", 16));
}

TEST(IndexMapRecipe, PacksFromTheHighestBit) {
    IndexMap bits(33, 2, 1);
    for (const int x : {0, 9, 10, 32}) bits.set(x, 1, x + 1);
    bits.set(10, 1, 0);
    EXPECT_EQ(hexOf(bits), "00000000000000008040000080000000");

    IndexMap nibbles(9, 1, 4);
    for (const int x : {0, 1, 8}) nibbles.set(x, 0, 15 - x);
    EXPECT_EQ(hexOf(nibbles), "FE00000070000000");
    nibbles.set(0, 0, 1);
    EXPECT_EQ(hexOf(nibbles), "1E00000070000000");
    nibbles.set(1, 0, 2);
    EXPECT_EQ(hexOf(nibbles), "1200000070000000");

    IndexMap bytes(5, 1, 8);
    bytes.set(4, 0, 200);
    EXPECT_EQ(hexOf(bytes), "00000000C8000000");
}

using Reducer = std::function<void(Picture&, IndexMap&, EventLog&)>;

struct DitherExample {
    const char* name;
    Reducer run;
    const char* before;
    const char* after;
    const char* map;
    const char* log;
};

/// Each example, and the same operation on an empty picture.
void check(const std::vector<DitherExample>& examples) {
    for (const DitherExample& example : examples) {
        SCOPED_TRACE(example.name);
        Picture empty;
        IndexMap map(3, 1, 8);
        EventLog log;
        example.run(empty, map, log);
        EXPECT_EQ(hexOf(map), "00000000");
        EXPECT_EQ(log.toString(), "");

        Picture D = picture(example.before);
        example.run(D, map, log);
        EXPECT_EQ(firstDifference(picture(example.after), D), "");
        EXPECT_EQ(hexOf(map), example.map);
        EXPECT_EQ(log.toString(), example.log);
    }
}

void blackAndWhite15(Picture& D, IndexMap& map, EventLog& log) {
    ditherToBlackAndWhite(D, map, 15, log);
}

TEST(BlackAndWhiteRecipe, WorkedExamples) {
    check({
        // The errors -155, 81, -155, 86, -154 give -29 -14, 15 7, -29 -14, 16; the last columns get no more.
        {"one colour in a row", blackAndWhite15, "100 100 100 100 100 100", "255 0 255 0 255 255", "AC000000",
         "0 1 end"},
        {"one colour in a column", blackAndWhite15, "100 | 100 | 100 | 100 | 100 | 100",
         "255 | 0 | 255 | 0 | 255 | 255", "800000000000000080000000000000008000000080000000",
         "0 1 2 2 2 3 4 4 4 5 6 6 end"},
        {"the three channels count alike", blackAndWhite15, "255.0.0.1 80.80.80.2", "255.255.255.1 0.0.0.2",
         "80000000", "0 1 end"},
        {"a mean of 83.5 counts as 83", blackAndWhite15, "84 83", "255 255", "C0000000", "0 1 end"},
    });
}

struct Spread {
    int x;
    int y;
    int source;  // below the threshold in a white field, or above it in a black one
    const char* shares;
};

/// What the source gives to each place behind it, found by a probe that just reaches the threshold with it,
/// and one that is darker by 1. The field lies at its limit, so that it passes nothing on.
void checkSpread(const Spread& spread, int threshold, const Reducer& run) {
    const Picture shares = picture(spread.shares);
    const auto plain = [](int value) { return grey(value, 0); };
    const bool isWhiteField = spread.source < threshold;
    for (int place = spread.y * shares.width + spread.x + 1; place < shares.width * shares.height; ++place) {
        const int x = place % shares.width;
        const int y = place / shares.width;
        const int share = isWhiteField ? shares.sample(x, y, 0) : -shares.sample(x, y, 0);
        for (const int missing : {0, 1}) {
            Picture D(shares.width, shares.height, plain(isWhiteField ? 255 : 0));
            Picture after = D;
            D.at(spread.x, spread.y) = plain(spread.source);
            D.at(x, y) = plain(threshold - share - missing);
            after.at(spread.x, spread.y) = plain(isWhiteField ? 0 : 255);
            after.at(x, y) = plain(missing == 0 ? 255 : 0);
            IndexMap map;
            EventLog log;
            run(D, map, log);
            EXPECT_EQ(firstDifference(after, D), "")
                << spread.source << " at (" << spread.x << ", " << spread.y << "), probe at (" << x << ", "
                << y << ") less " << missing;
        }
    }
}

TEST(BlackAndWhiteRecipe, SpreadsByTheKernelWithinItsLimits) {
    const auto weight10 = [](Picture& D, IndexMap& map, EventLog& log) {
        ditherToBlackAndWhite(D, map, 10, log);
    };
    // The means are (33 * 255 + 42 + probe) / 35 and (213 + probe) / 35.
    const char* const of42 = "0 0 0 0 8 4 0 | 0 2 4 8 4 2 0 | 0 1 2 4 2 1 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0";
    const char* const of41 = "0 0 0 0 7 3 0 | 0 1 3 7 3 1 0 | 0 0 1 3 1 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0";
    const char* const of28 = "0 0 0 0 5 2 0 | 0 1 2 5 2 1 0 | 0 0 1 2 1 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0";
    checkSpread({3, 0, 42, of42}, 248, weight10);
    checkSpread({3, 0, 213, of42}, 6, weight10);
    checkSpread({3, 0, 41, of41}, 248, weight10);
    checkSpread({3, 0, 214, of41}, 6, weight10);
    checkSpread({3, 0, 42, of28}, 248, blackAndWhite15);
    checkSpread({3, 0, 213, of28}, 6, blackAndWhite15);
    const std::vector<Spread> atBorders = {
        {0, 0, 42, "0 8 4 0 0 0 0 | 8 4 2 0 0 0 0 | 4 2 1 0 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0"},
        {1, 0, 42, "0 0 8 4 0 0 0 | 4 8 4 2 0 0 0 | 2 4 2 1 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0"},
        {4, 0, 42, "0 0 0 0 0 8 0 | 0 0 2 4 8 4 0 | 0 0 1 2 4 2 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0"},
        {5, 1, 42, "0 0 0 0 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 2 4 8 0 | 0 0 0 1 2 4 0 | 0 0 0 0 0 0 0"},
        {6, 0, 42, "0 0 0 0 0 0 0 | 0 0 0 0 2 4 8 | 0 0 0 0 1 2 4 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0"},
        {3, 2, 42, "0 0 0 0 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 8 4 0 | 0 2 4 8 4 2 0 | 0 0 0 0 0 0 0"},
        {3, 3, 42, "0 0 0 0 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 0 0 0 | 0 0 0 0 8 4 0 | 0 0 0 0 0 0 0"},
    };
    for (const Spread& spread : atBorders) checkSpread(spread, 248, weight10);
}

TEST(GreyRecipe, WorkedExamples) {
    const auto to = [](const Palette& Pal, bool Diffuse) {
        return [Pal, Diffuse](Picture& D, IndexMap& map, EventLog& log) {
            ditherToGreyPalette(D, map, Pal, Diffuse, log);
        };
    };
    const auto greys2 = to(createBlackAndWhite(), true);
    const auto greys16 = to(createGreys016(), true);
    const char* const colors = "255.0.0.1 0.255.0.2 0.0.255.3 | 9.9.9.4 0 0";
    const char* const colorGreys = "18.18.18.1 180.180.180.2 57.57.57.3 | 9.9.9.4 0 0";
    check({
        {"256, plain", to(createGreys256(), false), colors, colorGreys, "12B4390009000000", "0 1 end"},
        {"256, diffused", to(createGreys256(), true), colors, colorGreys, "12B4390009000000", "0 1 end"},
        {"16, plain", to(createGreys016(), false), "8 9 255", "8 9 255", "01F00000", "0 end"},
        // 8 gives 8 * 7 / 16 = 3 to the next, which makes 8 and 9.
        {"16, below the step", greys16, "8 5", "0 0", "00000000", "0 end"},
        {"16, above the step", greys16, "8 6", "0 17", "01000000", "0 end"},
        {"2, plain", to(createBlackAndWhite(), false), "127 128", "127 128", "40000000", "0 end"},
        // 100; then 143, 131, 106; then 51, 110, 71, 93; then 108, 80; then 128; then 53.
        {"2, diffused", greys2, "100 100 100 | 100 100 100", "0 255 0 | 0 255 0", "4000000040000000",
         "0 1 end"},
    });
}

TEST(ColorRecipe, WorkedExamples) {
    const auto to = [](const Palette& Pal, bool Diffuse) {
        return [Pal, Diffuse](Picture& D, IndexMap& map, EventLog& log) {
            ditherToColorPalette(D, map, Pal, Diffuse, log);
        };
    };
    const auto ega = to(createEGA(), true);
    check({
        {"four bytes of the entry", to(paletteOf("9.9.9.7 200.100.50.3", 2), false), "10.9.8.1 190.110.60.1",
         "9.9.9.7 200.100.50.3", "40000000", "0 end"},
        // 62 lies nearer to 0, but its level stands for 68, which lies nearer to 128.
        {"looked up by levels", to(createEGA(), false), "59.0.0.0 59.0.0.0 62.0.0.0",
         "0.0.0.0 0.0.0.0 128.0.0.0", "00400000", "0 end"},
        // 59 plus 1 would reach the level that 128 is nearest to.
        {"an error of 3 stops", ega, "3.0.0.0 59.0.0.0", "0.0.0.0 0.0.0.0", "00000000", "0 end"},
        {"an error of 4 spreads", ega, "4.0.0.0 59.0.0.0", "0.0.0.0 128.0.0.0", "04000000", "0 end"},
        {"an error of -4 spreads", ega, "124.0.0.0 60.0.0.0", "128.0.0.0 0.0.0.0", "40000000", "0 end"},
        // Green lies nearest to grey 85. Its errors -85, 170, -85 give -26, 53, -26: (4, 153, 4).
        {"256, each channel by itself", to(createGreys256(), true), "0.255.0.1 | 30.100.30.1",
         "85.85.85.0 | 51.51.51.0", "5500000033000000", "0 1 end"},
    });
}

}  // namespace
}  // namespace mobrel::recipes
