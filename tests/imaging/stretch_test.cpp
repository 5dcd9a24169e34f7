// SPDX-License-Identifier: MIT
// StretchDIB against a plain bicubic of its own, and what must hold for any good scaling.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "imaging/BicubicPlain.hpp"
#include "imaging/mGDIpEx.hpp"
#include "platform/drawing/scaling/BicubicGraph.hpp"
#include "support/MemoryLimit.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::Picture;

struct Scaling {
    int fromWidth, fromHeight, toWidth, toHeight;
};

std::ostream& operator<<(std::ostream& out, const Scaling& s) {
    return out << s.fromWidth << 'x' << s.fromHeight << " to " << s.toWidth << 'x' << s.toHeight;
}

constexpr Scaling kScalings[] = {
    {40, 30, 20, 15},   {40, 30, 80, 60},  {41, 29, 17, 53}, {70, 3, 69, 4},   {5, 7, 5, 7},
    {2, 2, 7, 5},       {3, 200, 200, 3},  {64, 64, 63, 65}, {100, 90, 7, 6},  {130, 1, 13, 1},
    {1, 1, 500, 3},     {500, 3, 1, 1},    {1, 300, 300, 1}, {300, 1, 1, 300}, {2, 3, 1, 1},
    {640, 40, 20, 41},  {40, 640, 41, 20}, {9, 9, 1, 9},     {7, 1, 3, 1},     {40000, 2, 7, 2},
    {2, 40000, 3, 900}, {1, 1, 40000, 1},  {3, 5, 4000, 6},  {97, 61, 11, 60}, {1, 2, 1, 5},
    {12, 12, 100, 9},   {33, 200, 32, 13}, {60, 50, 2, 2},   {31, 33, 2, 3},   {1000, 1, 999, 2},
};

double catmullRom(double x) {
    const double d = std::abs(x);
    if (d >= 2) return 0;
    return d < 1 ? 1.5 * d * d * d - 2.5 * d * d + 1 : -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2;
}

/// One axis of the recipe: `at(i)` gives source sample i. Beyond the edges the picture is mirrored.
template <typename At>
double resampled(int d, int to, int from, At at) {
    const double ratio = static_cast<double>(from) / to;
    const double width = std::max(ratio, 1.0);
    const double centre = (d + 0.5) * ratio - 0.5;
    double sum = 0;
    double weights = 0;
    for (int i = static_cast<int>(std::floor(centre - 2 * width)); i <= centre + 2 * width; ++i) {
        int shown = i;
        while (shown < 0 || shown >= from) shown = shown < 0 ? -1 - shown : 2 * from - 1 - shown;
        const double weight = catmullRom((i - centre) / width);
        sum += weight * at(shown);
        weights += weight;
    }
    return sum / weights;
}

/// The picture in its new size, one channel, not yet rounded.
std::vector<double> recipe(const Picture& picture, int toWidth, int toHeight, std::size_t channel) {
    std::vector<double> across;  // toWidth x the old height
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < toWidth; ++x) {
            across.push_back(
                resampled(x, toWidth, picture.width, [&](int i) { return picture.sample(i, y, channel); }));
        }
    }
    std::vector<double> both;
    for (int y = 0; y < toHeight; ++y) {
        for (int x = 0; x < toWidth; ++x) {
            both.push_back(resampled(y, toHeight, picture.height, [&](int i) {
                return across[static_cast<std::size_t>(i) * static_cast<std::size_t>(toWidth) +
                              static_cast<std::size_t>(x)];
            }));
        }
    }
    return both;
}

Picture stretched(const Picture& picture, int width, int height, bool highQuality = true) {
    cDIB surface;
    test::toSurface(picture, surface);
    EXPECT_TRUE(StretchDIB(surface, width, height, highQuality));
    return test::fromSurface(surface);
}

/// The largest distance of a component from the recipe's; byte 3 of a pixel must be 0.
double worstDistance(const Picture& picture, const Picture& scaled) {
    double worst = 0;
    for (const std::size_t channel : test::kChannels) {
        const auto expected = recipe(picture, scaled.width, scaled.height, channel);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const double limited = std::clamp(expected[i], 0.0, 255.0);
            worst = std::max(worst, std::abs(limited - scaled.pixels[i][channel]));
        }
    }
    for (const test::Pixel& pixel : scaled.pixels) {
        if (pixel[3] != 0) return std::numeric_limits<double>::infinity();
    }
    return worst;
}

Picture noise(int width, int height, bool extremes = false) {
    Picture picture(width, height);
    std::uint32_t state = 12345;
    for (test::Pixel& pixel : picture.pixels) {
        for (std::uint8_t& byte : pixel) {
            state = state * 1664525 + 1013904223;
            byte = static_cast<std::uint8_t>(extremes ? (state >> 31) * 255 : state >> 24);
        }
    }
    return picture;
}

TEST(StretchDIB, FollowsTheRecipe) {
    for (const Scaling& s : kScalings) {
        for (const bool extremes : {false, true}) {
            const Picture picture = noise(s.fromWidth, s.fromHeight, extremes);
            // half a level of rounding, and what the weights' 14 bits leave
            EXPECT_LE(worstDistance(picture, stretched(picture, s.toWidth, s.toHeight)), 1.0) << s;
        }
    }
}

Picture scaledBy(const Picture& picture, const Scaling& s, ZimgKernels kernels) {
    cDIB source;
    cDIB target;
    test::toSurface(picture, source);
    EXPECT_TRUE(target.Create(s.toWidth, s.toHeight, 0));
    EXPECT_TRUE(scaleByGraph(*target.hDIBDC(), *source.hDIBDC(), kernels)) << s;
    return test::fromSurface(target);
}

TEST(StretchDIB, DoesNotDependOnTheProcessor) {
    // the last three are where zimg's 64-byte kernels go wrong
    const Scaling more[] = {{400, 300, 133, 100}, {401, 299, 803, 611}, {1023, 77, 512, 150},
                            {257, 255, 31, 900},  {74, 57, 32, 114},    {83, 11, 40, 116},
                            {119, 93, 59, 6}};
    std::vector<Scaling> all(std::begin(kScalings), std::end(kScalings));
    all.insert(all.end(), std::begin(more), std::end(more));
    for (const Scaling& s : all) {
        const Picture picture = noise(s.fromWidth, s.fromHeight);
        EXPECT_EQ(test::firstDifference(scaledBy(picture, s, ZimgKernels::PlainC),
                                        scaledBy(picture, s, ZimgKernels::ForProcessor)),
                  "")
            << s;
    }
}

// Where either could do it the seam between the two ways must not show.
TEST(StretchDIB, BothWaysGiveTheSamePicture) {
    for (const Scaling& s : {Scaling{160, 120, 11, 9}, {160, 120, 10, 200}, {50, 40, 120, 90}}) {
        const Picture picture = noise(s.fromWidth, s.fromHeight);
        cDIB source;
        cDIB target;
        test::toSurface(picture, source);
        ASSERT_TRUE(target.Create(s.toWidth, s.toHeight, 0));
        scalePlainly(*target.hDIBDC(), *source.hDIBDC());
        EXPECT_LE(worstDistance(picture, test::fromSurface(target)), 0.5001) << s;
    }
}

TEST(StretchDIB, FlatPicturesStayFlat) {
    for (const Scaling& s : kScalings) {
        for (const test::Pixel colour : {test::Pixel{0, 255, 1}, {128, 127, 254}, {37, 90, 201}}) {
            const Picture flat(s.fromWidth, s.fromHeight, colour);
            EXPECT_EQ(stretched(flat, s.toWidth, s.toHeight), Picture(s.toWidth, s.toHeight, colour)) << s;
        }
    }
}

TEST(StretchDIB, GradientsStayMonotone) {
    for (const int width : {16, 20, 64, 100, 255, 700, 4000}) {
        Picture ramp(256, 3);
        for (int x = 0; x < 256; ++x) {
            for (int y = 0; y < 3; ++y) {
                const auto value = static_cast<std::uint8_t>(x);
                ramp.at(x, y) = {value, static_cast<std::uint8_t>(255 - x), value, 0};
            }
        }
        const Picture scaled = stretched(ramp, width, 3);
        for (int x = 1; x < width; ++x) {
            ASSERT_GE(scaled.at(x, 1)[test::kBlue], scaled.at(x - 1, 1)[test::kBlue]) << width << ' ' << x;
            ASSERT_LE(scaled.at(x, 1)[test::kGreen], scaled.at(x - 1, 1)[test::kGreen]) << width << ' ' << x;
        }
    }
}

Picture halfTurned(Picture picture) {
    std::ranges::reverse(picture.pixels);
    return picture;
}

TEST(StretchDIB, AMirroredPictureIsScaledToTheMirroredResult) {
    for (const Scaling& s : kScalings) {
        const Picture picture = noise(s.fromWidth, s.fromHeight);
        const Picture straight = stretched(picture, s.toWidth, s.toHeight);
        const Picture mirrored = halfTurned(stretched(halfTurned(picture), s.toWidth, s.toHeight));
        int worst = 0;
        for (std::size_t i = 0; i < straight.pixels.size(); ++i) {
            for (const std::size_t channel : test::kChannels) {
                worst = std::max(worst, std::abs(straight.pixels[i][channel] - mirrored.pixels[i][channel]));
            }
        }
        EXPECT_LE(worst, 1) << s;  // zimg's weights are rounded from the left
    }
}

TEST(StretchDIB, WithoutQualityEachPixelComesFromTheOneUnderItsCentre) {
    const auto taken = [](int d, int to, int from) { return ((2 * d + 1) * from - 1) / (2 * to); };
    for (const Scaling& s : kScalings) {
        const Picture picture = noise(s.fromWidth, s.fromHeight);
        Picture expected(s.toWidth, s.toHeight);
        for (int y = 0; y < s.toHeight; ++y) {
            for (int x = 0; x < s.toWidth; ++x) {
                // the rule counts lines from the top, pictures of tests from the bottom
                const int line = taken(s.toHeight - 1 - y, s.toHeight, s.fromHeight);
                expected.at(x, y) = picture.at(taken(x, s.toWidth, s.fromWidth), s.fromHeight - 1 - line);
            }
        }
        EXPECT_EQ(test::firstDifference(expected, stretched(picture, s.toWidth, s.toHeight, false)), "") << s;
    }
}

TEST(StretchDIB, LeavesTheSurfaceAloneWhenItCannotScale) {
    const Picture picture = noise(1000, 800);
    for (const bool highQuality : {false, true}) {
        cDIB empty;
        EXPECT_FALSE(StretchDIB(empty, 5, 5, highQuality));
        EXPECT_EQ(empty.hDIB(), nullptr);

        cDIB surface;
        test::toSurface(picture, surface);
        const std::uint8_t* const bits = surface.DIBitsPtr();
        for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-3, 5}, {32768, 16384}}) {
            EXPECT_FALSE(StretchDIB(surface, width, height, highQuality)) << width << 'x' << height;
        }
        bool isDone = true;
        {
            const test::MemoryLimit limit(32 * test::kMiB);
            ASSERT_TRUE(limit.isSet());
            isDone = StretchDIB(surface, 5000, 5000, highQuality);
        }
        EXPECT_FALSE(isDone);
        EXPECT_EQ(surface.DIBitsPtr(), bits);
        EXPECT_EQ(test::fromSurface(surface), picture);
    }
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kNewCanFail = false;
#elif defined(__has_feature)
constexpr bool kNewCanFail = !__has_feature(address_sanitizer);
#else
constexpr bool kNewCanFail = true;
#endif

// The pixel finds room, but the line between does not.
TEST(StretchDIB, MissesMemoryForTheLinesToo) {
    if (!kNewCanFail) GTEST_SKIP() << "the address sanitizer ends the process where new would throw";
    const Picture picture = noise(2'000'000, 1);
    cDIB surface;
    test::toSurface(picture, surface);
    bool isDone = true;
    {
        const test::MemoryLimit limit(24 * test::kMiB);
        ASSERT_TRUE(limit.isSet());
        isDone = StretchDIB(surface, 1, 1, true);
    }
    EXPECT_FALSE(isDone);
    EXPECT_EQ(test::fromSurface(surface), picture);
}

}  // namespace
}  // namespace mobrel
