// SPDX-License-Identifier: MIT
// Pins the filter recipes to examples worked out by hand. Rows are written from y = 0 on.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "support/FilterRecipes.hpp"
#include "support/HslRecipe.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::recipes {
namespace {

using test::firstDifference;
using test::kChannels;
using test::kSentinel;

using Recipe = std::function<void(Picture&, EventLog&)>;
using Color = std::array<int, 3>;  // blue, green, red

Picture colors(const std::vector<std::vector<Color>>& rows) {
    Picture picture(static_cast<int>(rows.at(0).size()), static_cast<int>(rows.size()));
    auto pixel = picture.pixels.begin();
    for (const std::vector<Color>& row : rows) {
        for (const Color& color : row) {
            for (const std::size_t c : kChannels) (*pixel)[c] = static_cast<std::uint8_t>(color[c]);
            (*pixel)[3] = kSentinel;
            ++pixel;
        }
    }
    return picture;
}

Picture greyGrid(const std::vector<std::vector<int>>& rows) {
    std::vector<std::vector<Color>> colorRows;
    for (const std::vector<int>& row : rows) {
        std::vector<Color>& colorRow = colorRows.emplace_back();
        for (const int value : row) colorRow.push_back({value, value, value});
    }
    return colors(colorRows);
}

struct Example {
    const char* name;
    Recipe run;
    Picture before;
    Picture after;
    const char* log;
};

/// Each example, and the same operation on an empty picture.
void check(const std::vector<Example>& examples) {
    for (const Example& example : examples) {
        SCOPED_TRACE(example.name);
        Picture empty;
        EventLog silence;
        example.run(empty, silence);
        EXPECT_EQ(silence.toString(), "");

        Picture picture = example.before;
        EventLog log;
        example.run(picture, log);
        EXPECT_EQ(firstDifference(example.after, picture), "");
        EXPECT_EQ(log.toString(), example.log);
    }
}

/// Gives written numbers and counts them; std::out_of_range when they run out.
struct Draws {
    std::vector<float> numbers;
    std::size_t used = 0;

    NextRandom source() {
        return [this] { return numbers.at(used++); };
    }
};

TEST(PointRecipes, WorkedExamples) {
    check({
        {"greys", greys, colors({{{255, 0, 0}, {0, 255, 0}}, {{0, 0, 255}, {255, 255, 255}}}),
         greyGrid({{18, 180}, {57, 255}}), "0 1 end"},
        // 54.5 and 9.5: the order of the sum leaves both just below.
        {"greys, ties", greys, colors({{{51, 1, 226}, {92, 2, 7}}}), greyGrid({{54, 9}}), "0 end"},
        {"negative", negative, colors({{{1, 2, 3}}, {{0, 255, 128}}}),
         colors({{{254, 253, 252}}, {{255, 0, 127}}}), "0 1 end"},
        {"shiftRGB", [](Picture& D, EventLog& log) { shiftRGB(D, 10, -20, 300, log); },
         colors({{{5, 100, 250}, {0, 19, 1}}}), colors({{{255, 80, 255}, {255, 0, 11}}}), "0 end"},
        {"saturation 50", [](Picture& D, EventLog& log) { saturation(D, 50, log); },
         colors({{{10, 20, 41}, {0, 0, 255}}}), colors({{{4, 18, 50}, {0, 0, 255}}}), "0 end"},
        {"saturation -100", [](Picture& D, EventLog& log) { saturation(D, -100, log); },
         colors({{{10, 20, 40}}}), greyGrid({{23}}), "0 end"},
        // The factor 0.1 is a little more as a float: 8.5 lies above the tie.
        {"saturation 10", [](Picture& D, EventLog& log) { saturation(D, 10, log); }, colors({{{8, 1, 0}}}),
         colors({{{9, 1, 0}}}), "0 end"},
        // Mean 110, table 2 i - 110.
        {"contrast 100, black and white", [](Picture& D, EventLog& log) { contrast(D, 100, log); },
         greyGrid({{0, 100, 230}}), greyGrid({{0, 90, 255}}), "0 1 end"},
        // Mean 100, table 3.5 i - 250: 300, 100, 100.
        {"contrast 250, excess up", [](Picture& D, EventLog& log) { contrast(D, 250, log); },
         colors({{{157, 100, 100}}, {{81, 81, 81}}}), colors({{{255, 122, 122}}, {{34, 34, 34}}}),
         "0 1 2 2 end"},
        // Mean 101, table 2 i - 101. The first pixel is -59, 359, 19, then 0, 330, -10, then 37, 255, 27.
        {"contrast 100, both ways", [](Picture& D, EventLog& log) { contrast(D, 100, log); },
         colors({{{21, 230, 60}, {99, 99, 99}, {100, 90, 250}, {120, 90, 0}, {90, 90, 90}}}),
         colors({{{37, 255, 27}, {97, 97, 97}, {171, 151, 255}, {89, 29, 0}, {79, 79, 79}}}), "0 1 end"},
    });
}

TEST(NeighbourhoodRecipes, WorkedExamples) {
    check({
        {"blur 100", [](Picture& D, EventLog& log) { blur(D, 100, log); },
         greyGrid({{0, 0, 0, 0}, {0, 255, 0, 0}, {0, 0, 0, 9}, {9, 0, 0, 9}}),
         greyGrid({{0, 0, 0, 0}, {0, 28, 29, 0}, {0, 29, 30, 9}, {9, 0, 0, 9}}), "1 2 end"},
        {"blur 76: 5080 div 33", [](Picture& D, EventLog& log) { blur(D, 76, log); },
         greyGrid({{3, 17, 10}, {5, 200, 15}, {10, 10, 10}}),
         greyGrid({{3, 17, 10}, {5, 153, 15}, {10, 10, 10}}), "1 end"},
        // The centre's weight is 2^30, so that 4 times it is 0 in 32 bits.
        {"blur, wrapped", [](Picture& D, EventLog& log) { blur(D, 101 - (1 << 30), log); },
         greyGrid({{9, 9, 9}, {9, 4, 9}, {9, 9, 9}}), greyGrid({{9, 9, 9}, {9, 0, 9}, {9, 9, 9}}), "1 end"},
        {"soften 95: 400 div 10", [](Picture& D, EventLog& log) { soften(D, 95, log); },
         greyGrid({{255, 10, 255}, {20, 50, 30}, {255, 40, 255}}),
         greyGrid({{255, 10, 255}, {20, 40, 30}, {255, 40, 255}}), "1 end"},
        {"sharpen 85: 1585 div 16", [](Picture& D, EventLog& log) { sharpen(D, 85, log); },
         greyGrid({{101, 102, 103}, {100, 100, 105}, {104, 100, 100}}),
         greyGrid({{101, 102, 103}, {100, 99, 105}, {104, 100, 100}}), "1 end"},
        {"sharpen 100, clamped", [](Picture& D, EventLog& log) { sharpen(D, 100, log); },
         greyGrid({{0, 0, 0, 0}, {0, 255, 0, 0}, {0, 0, 0, 0}}),
         greyGrid({{0, 0, 0, 0}, {0, 255, 0, 0}, {0, 0, 0, 0}}), "1 end"},
        {"contour", contour, greyGrid({{10, 20, 30}, {40, 100, 60}, {180, 90, 0}}),
         greyGrid({{10, 20, 30}, {40, 175, 60}, {180, 90, 0}}), "1 end"},
        // 51 * 2.5 rounds to 128; (128 + 66) / 2.5 = 77.6. Two corners do not count.
        {"relieve 76", [](Picture& D, EventLog& log) { relieve(D, 76, log); },
         greyGrid({{200, 10, 20}, {4, 51, 43}, {1, 2, 200}}),
         greyGrid({{200, 10, 20}, {4, 78, 43}, {1, 2, 200}}), "1 end"},
        // The mean is 151 div 5 = 30, the brighter corner 9 above the centre: 30 - 4.5 + 5 = 30.5.
        {"outline -25, 5", [](Picture& D, EventLog& log) { outline(D, -25, 5, log); },
         greyGrid({{60, 10, 0}, {20, 51, 30}, {0, 40, 0}}), greyGrid({{60, 10, 0}, {20, 30, 30}, {0, 40, 0}}),
         "0 1 end"},
        {"outline 50, -3", [](Picture& D, EventLog& log) { outline(D, 50, -3, log); },
         greyGrid({{0, 10, 60}, {20, 51, 30}, {0, 40, 0}}), greyGrid({{0, 10, 60}, {20, 36, 30}, {0, 40, 0}}),
         "0 1 end"},
    });
}

TEST(ReliefRecipes, WorkedExamples) {
    check({
        {"emboss 100", [](Picture& D, EventLog& log) { emboss(D, 100, true, log); },
         greyGrid({{10, 50}, {200, 30}}), greyGrid({{62, 22}, {255, 148}}), "0 1 2 2 end"},
        {"engrave 50", [](Picture& D, EventLog& log) { engrave(D, 50, true, log); },
         greyGrid({{10, 50}, {200, 30}}), greyGrid({{223, 203}, {33, 118}}), "0 1 2 2 end"},
        // The second row takes the first, not the third; the last row and column only go grey.
        {"emboss, margins apart", [](Picture& D, EventLog& log) { emboss(D, 100, false, log); },
         greyGrid({{10, 20, 30}, {40, 60, 90}, {1, 2, 3}}),
         greyGrid({{98, 108, 30}, {158, 178, 90}, {1, 2, 3}}), "0 1 2 2 2 end"},
        // Single pixels: the grey of 54.5 and 3.5 ends on the other side than with greys.
        {"emboss, tie", [](Picture& D, EventLog& log) { emboss(D, 100, false, log); },
         colors({{{51, 1, 226}}}), greyGrid({{55}}), "0 end"},
        {"engrave, tie", [](Picture& D, EventLog& log) { engrave(D, 100, false, log); },
         colors({{{20, 2, 3}}}), greyGrid({{4}}), "0 end"},
        // Blue 88, green 168, red 128 after the first pass: 118.776 + 28.416 + 6.248 = 153.44.
        {"emboss, colours", [](Picture& D, EventLog& log) { emboss(D, 100, true, log); },
         colors({{{60, 100, 50}}, {{100, 60, 50}}}), greyGrid({{153}, {103}}), "0 1 2 2 end"},
    });
}

TEST(RankRecipes, WorkedExamples) {
    const Picture speck =
        greyGrid({{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 9, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}});
    const Picture plus =
        greyGrid({{0, 0, 0, 0, 0}, {0, 0, 9, 0, 0}, {0, 9, 9, 9, 0}, {0, 0, 9, 0, 0}, {0, 0, 0, 0, 0}});
    check({
        {"despeckle, black in white", despeckle,
         greyGrid({{255, 255, 255, 255, 255},
                   {255, 255, 255, 255, 255},
                   {255, 255, 0, 255, 255},
                   {255, 255, 255, 255, 255},
                   {255, 255, 255, 255, 255}}),
         greyGrid({{255, 255, 255, 255, 255},
                   {255, 254, 254, 254, 255},
                   {255, 254, 8, 254, 255},
                   {255, 254, 254, 254, 255},
                   {255, 255, 255, 255, 255}}),
         "0 0 1 1 1 2 2 2 2 2 3 3 end"},
        // 50 rises to 51 in the second pass, so that the 52 beside it stays.
        {"despeckle, in place", despeckle, greyGrid({{51, 51, 52, 52}, {60, 50, 52, 52}, {51, 51, 52, 52}}),
         greyGrid({{51, 51, 52, 52}, {60, 51, 52, 52}, {51, 51, 52, 52}}), "0 0 1 1 end"},
        // Pass by pass 102, 101, 101, 97.
        {"despeckleMore", despeckleMore, greyGrid({{50, 101, 0}, {101, 100, 100}, {0, 103, 200}}),
         greyGrid({{50, 101, 0}, {101, 97, 100}, {0, 103, 200}}), "0 0 1 1 end"},
        // 101 falls by the first two tests; 100 rises by the last but one. The other passes balance out.
        {"despeckleMore, down", despeckleMore, greyGrid({{0, 98, 255}, {0, 101, 255}, {0, 100, 255}}),
         greyGrid({{0, 98, 255}, {0, 99, 255}, {0, 100, 255}}), "0 0 1 1 end"},
        {"despeckleMore, up", despeckleMore, greyGrid({{0, 100, 255}, {0, 100, 255}, {0, 101, 255}}),
         greyGrid({{0, 100, 255}, {0, 101, 255}, {0, 101, 255}}), "0 0 1 1 end"},
        {"rankFilterMaximum", rankFilterMaximum, speck, plus, "1 2 3 end"},
        {"rankFilterMinimum", rankFilterMinimum, plus, speck, "1 2 3 end"},
        // The ring's mean is 131 div 12 = 10; 12 is just near enough.
        {"saltAndPepperRemoval 2", [](Picture& D, EventLog& log) { saltAndPepperRemoval(D, 2, log); },
         greyGrid({{21, 10, 10, 10}, {10, 12, 13, 10}, {10, 200, 7, 10}, {10, 10, 10, 10}}),
         greyGrid({{21, 10, 10, 10}, {10, 12, 10, 10}, {10, 10, 10, 10}, {10, 10, 10, 10}}), "1 end"},
        // The second place sees the first one's 120 as cleaned.
        {"saltAndPepperRemoval, overlap", [](Picture& D, EventLog& log) { saltAndPepperRemoval(D, 5, log); },
         greyGrid({{0, 0, 0, 0, 0}, {0, 120, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}}),
         greyGrid({{0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}, {0, 0, 0, 0, 0}}), "1 end"},
    });
}

TEST(RankRecipes, OneChannelReplacesThePixel) {
    Picture picture(4, 4, {10, 20, 30, kSentinel});
    picture.at(1, 1) = {11, 21, 34, kSentinel};
    picture.at(2, 1) = {13, 17, 33, kSentinel};
    EventLog log;
    saltAndPepperRemoval(picture, 3, log);
    EXPECT_EQ(picture.at(1, 1), (test::Pixel{10, 20, 30, kSentinel}));
    EXPECT_EQ(picture.at(2, 1), (test::Pixel{13, 17, 33, kSentinel}));
}

TEST(DisplaceRecipes, WorkedExamples) {
    check({
        {"pixelize 2", [](Picture& D, EventLog& log) { pixelize(D, 2, log); },
         greyGrid({{1, 2, 9}, {3, 5, 8}, {7, 10, 250}}), greyGrid({{2, 2, 8}, {2, 2, 8}, {8, 8, 250}}),
         "0 1 2 end"},
        {"scanLines 50, 100", [](Picture& D, EventLog& log) { scanLines(D, 50, 100, log); },
         greyGrid({{127, 128}, {127, 125}, {9, 9}}), greyGrid({{254, 255}, {64, 62}, {9, 9}}), "0 end"},
        // The factor 1.1 is a little more as a float: 16.5 lies above the tie.
        {"scanLines 0, 10", [](Picture& D, EventLog& log) { scanLines(D, 0, 10, log); },
         colors({{{15, 100, 240}}, {{15, 100, 240}}}), colors({{{17, 110, 255}}, {{15, 100, 240}}}), "0 end"},
        {"scanLines 150, 0", [](Picture& D, EventLog& log) { scanLines(D, 150, 0, log); },
         greyGrid({{9, 200}, {9, 200}}), greyGrid({{9, 200}, {0, 0}}), "0 end"},
        {"scanLines, one row", [](Picture& D, EventLog& log) { scanLines(D, 50, 100, log); },
         greyGrid({{127, 128}}), greyGrid({{127, 128}}), "end"},
    });
}

TEST(DisplaceRecipes, RandomNumbers) {
    // Places before the edges: (0.5, 1.5), (0, 0), (0.5, 0), (1.5, 1).
    Draws four{{0.75F, 0.875F, 0.0F, 0.5F, 0.75F, 0.25F, 0.75F, 0.5F}};
    // Columns -1 and 1 for x = 0 and 2 in each visited row.
    Draws lattice{{0, 0, 0, 0, 0, 0, 0, 0}};
    // 2.5 - 10 = -7.5 and 15.625 - 10 = 5.625.
    Draws two{{0.125F, 0.78125F}};
    Draws none{{0.1F, 0.9F, 0.5F}};
    check({
        {"diffuse", [&](Picture& D, EventLog& log) { diffuse(D, 1, 2, 1, four.source(), log); },
         greyGrid({{1, 2}, {3, 4}}), greyGrid({{3, 1}, {1, 4}}), "0 1 end"},
        {"diffuse, step 2", [&](Picture& D, EventLog& log) { diffuse(D, 1, 0, 2, lattice.source(), log); },
         greyGrid({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}), greyGrid({{1, 2, 2}, {4, 5, 6}, {7, 8, 8}}), "0 2 end"},
        {"noise 10, step 2", [&](Picture& D, EventLog& log) { noise(D, 10, 2, two.source(), log); },
         colors({{{0, 100, 255}, {1, 2, 3}, {252, 0, 1}}}), colors({{{0, 92, 247}, {1, 2, 3}, {255, 6, 7}}}),
         "0 end"},
        {"noise 0", [&](Picture& D, EventLog& log) { noise(D, 0, 1, none.source(), log); },
         greyGrid({{7, 8, 9}}), greyGrid({{7, 8, 9}}), "0 end"},
    });
    for (const Draws* draws : {&four, &lattice, &two, &none}) EXPECT_EQ(draws->used, draws->numbers.size());
}

TEST(SelectRecipes, HslOf) {
    struct Case {
        Rgb color;
        Hsl hsl;
    };
    const std::vector<Case> cases = {
        {{0, 0, 0}, {0, 0, 0}},
        {{51, 51, 51}, {0, 0, 0.2F}},
        {{255, 0, 0}, {0, 1, 0.5F}},
        {{255, 255, 0}, {1, 1, 0.5F}},
        {{0, 255, 0}, {2, 1, 0.5F}},
        {{0, 255, 255}, {3, 1, 0.5F}},
        {{0, 0, 255}, {4, 1, 0.5F}},
        {{255, 0, 255}, {-1, 1, 0.5F}},
        {{102, 51, 51}, {0, 1 / 3.0F, 0.3F}},
        {{204, 204, 153}, {1, 1 / 3.0F, 0.7F}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << int{c.color.r} << ' ' << int{c.color.g} << ' ' << int{c.color.b});
        const Hsl hsl = hslOf(c.color);
        EXPECT_NEAR(hsl.h, c.hsl.h, 1e-6);
        EXPECT_NEAR(hsl.s, c.hsl.s, 1e-6);
        EXPECT_NEAR(hsl.l, c.hsl.l, 1e-6);
    }
}

TEST(SelectRecipes, RgbOf) {
    struct Case {
        Hsl hsl;
        Rgb color;
    };
    // 0.375, 0.625 and their middle are 96, 159 and 128.
    const std::vector<Case> cases = {
        {{3, 0, 0.5F}, {128, 128, 128}},       {{0, 1, 0.5F}, {255, 0, 0}},
        {{-1, 1, 0.5F}, {255, 0, 255}},        {{-0.5F, 0.25F, 0.5F}, {159, 96, 128}},
        {{0.5F, 0.25F, 0.5F}, {159, 128, 96}}, {{1.25F, 0.25F, 0.5F}, {143, 159, 96}},
        {{2.5F, 0.25F, 0.5F}, {96, 159, 128}}, {{3.25F, 0.25F, 0.5F}, {96, 143, 159}},
        {{4.5F, 0.25F, 0.5F}, {128, 96, 159}}, {{0, 0.5F, 0.75F}, {223, 159, 159}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.hsl.h << ' ' << c.hsl.s << ' ' << c.hsl.l);
        const Rgb color = rgbOf(c.hsl);
        EXPECT_EQ(int{color.r}, int{c.color.r});
        EXPECT_EQ(int{color.g}, int{c.color.g});
        EXPECT_EQ(int{color.b}, int{c.color.b});
    }
}

// With Tolerance 20 the sphere is T = round(25.5^2 + 1) = 651.
TEST(SelectRecipes, WorkedExamples) {
    check({
        {"colorize", [](Picture& D, EventLog& log) { colorize(D, 0.5F, 0.25F, 0.5F, log); },
         colors({{{255, 255, 255}}, {{0, 0, 0}}}), colors({{{96, 128, 159}}, {{0, 0, 0}}}), "0 1 end"},
        // Two pixels are off in hue, one on each side of red; the last is off the sphere.
        {"replaceHS, hue", [](Picture& D, EventLog& log) { replaceHS(D, 0x0000FF, 0x804020, 20, 1, 0, log); },
         colors({{{0, 0, 255}, {0, 10, 255}, {0, 20, 255}, {20, 0, 255}},
                 {{10, 10, 255}, {18, 18, 255}, {19, 18, 255}, {0, 0, 0}}}),
         colors({{{128, 64, 32}, {108, 56, 66}, {0, 20, 255}, {20, 0, 255}},
                 {{92, 47, 101}, {19, 18, 254}, {19, 18, 255}, {0, 0, 0}}}),
         "0 1 end"},
        // Saturation 245 / 255 = 0.961 is off by more than 0.03.
        {"replaceHS, saturation 3",
         [](Picture& D, EventLog& log) { replaceHS(D, 0x0000FF, 0x804020, 20, 20, 3, log); },
         colors({{{5, 5, 250}}}), colors({{{5, 5, 250}}}), "0 end"},
        {"replaceHS, saturation 4",
         [](Picture& D, EventLog& log) { replaceHS(D, 0x0000FF, 0x804020, 20, 20, 4, log); },
         colors({{{5, 5, 250}}}), colors({{{114, 57, 57}}}), "0 end"},
        {"replaceL", [](Picture& D, EventLog& log) { replaceL(D, 0x646464, 0x0000C8, 20, 1, log); },
         colors({{{100, 100, 100}, {107, 100, 100}, {108, 100, 100}},
                 {{110, 90, 100}, {92, 100, 100}, {0, 0, 0}}}),
         colors({{{0, 0, 200}, {8, 8, 192}, {108, 100, 100}}, {{34, 28, 169}, {92, 100, 100}, {0, 0, 0}}}),
         "0 1 end"},
        {"shift 20", [](Picture& D, EventLog& log) { shift(D, 0x646464, 20, 20, log); },
         colors({{{100, 100, 100}, {110, 100, 100}, {100, 100, 130}}}),
         colors({{{120, 120, 120}, {127, 117, 117}, {100, 100, 130}}}), "0 end"},
        {"shift 200, limited", [](Picture& D, EventLog& log) { shift(D, 0x0A6432, 200, 0, log); },
         colors({{{10, 100, 50}, {11, 100, 50}}}), colors({{{210, 255, 250}, {11, 100, 50}}}), "0 end"},
    });
}

TEST(TextureRecipe, WorkedExample) {
    const Picture texture = colors({{{128, 1, 2}, {255, 3, 4}}, {{0, 255, 255}, {64, 9, 9}}});
    check({
        {"texturize", [&](Picture& D, EventLog& log) { texturize(D, texture, log); },
         greyGrid({{10, 64, 10}, {200, 200, 200}, {64, 128, 64}}),
         greyGrid({{10, 254, 10}, {0, 36, 0}, {64, 255, 64}}), "0 2 end"},
    });
}

TEST(Recipes, Errors) {
    struct Case {
        const char* name;
        Recipe run;
        Picture picture;
        ErrorNumber error;
        const char* log;
    };
    const Picture dot = greyGrid({{0, 0, 0}, {0, 0, 0}, {0, 255, 0}, {0, 0, 0}});
    const auto kOverflow = ErrorNumber::Overflow;
    const auto kByZero = ErrorNumber::DivisionByZero;
    const std::vector<Case> cases = {
        {"blur 109", [](Picture& D, EventLog& log) { blur(D, 109, log); }, dot, kByZero, ""},
        {"soften 105", [](Picture& D, EventLog& log) { soften(D, 105, log); }, dot, kByZero, ""},
        {"sharpen 101", [](Picture& D, EventLog& log) { sharpen(D, 101, log); }, dot, kByZero, ""},
        {"relieve 101", [](Picture& D, EventLog& log) { relieve(D, 101, log); }, dot, kByZero, ""},
        {"pixelize 0", [](Picture& D, EventLog& log) { pixelize(D, 0, log); }, dot, kByZero, ""},
        // -1020 div 4 in the second inner row; 255 div 4 fits in the first.
        {"blur 105", [](Picture& D, EventLog& log) { blur(D, 105, log); }, dot, kOverflow, "1"},
        {"soften 103", [](Picture& D, EventLog& log) { soften(D, 103, log); }, dot, kOverflow, "1"},
        {"colorize, luminosity 2", [](Picture& D, EventLog& log) { colorize(D, 0, 0, 2, log); }, dot,
         kOverflow, "0 1"},
        {"scanLines -100, 0", [](Picture& D, EventLog& log) { scanLines(D, -100, 0, log); }, dot, kOverflow,
         ""},
        {"scanLines 0, -200", [](Picture& D, EventLog& log) { scanLines(D, 0, -200, log); }, dot, kOverflow,
         ""},
        {"shift, extent 40000", [](Picture& D, EventLog& log) { shift(D, 0, 1, 40000, log); }, dot, kOverflow,
         ""},
        {"contrast 2^31 - 1 - 100", [](Picture& D, EventLog& log) { contrast(D, 2147483547, log); }, dot,
         kOverflow, "0 1 2 2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Picture picture = c.picture;
        EventLog log;
        try {
            c.run(picture, log);
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(static_cast<int>(error.number()), static_cast<int>(c.error));
        }
        EXPECT_EQ(log.toString(), c.log);
    }
}

}  // namespace
}  // namespace mobrel::recipes
