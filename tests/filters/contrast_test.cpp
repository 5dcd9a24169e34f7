// SPDX-License-Identifier: MIT
// Contrast on colours that clip in every way.
#include <gtest/gtest.h>

#include <cstdint>

#include "filters/cDIBFilter.hpp"
#include "support/FilterRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

/// All blues and greens, with one red.
test::Picture coloursWithRed(std::uint8_t red) {
    test::Picture picture(256, 256);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            picture.at(x, y) = {static_cast<std::uint8_t>(x), static_cast<std::uint8_t>(y), red, 9};
        }
    }
    return picture;
}

// Levels with and without rounding ties, and around the largest one whose values stay within 16 bits.
TEST(Contrast, ResolvesEveryKindOfClipping) {
    for (const std::int32_t level : {-900, -250, -50, 7, 25, 50, 99, 150, 225, 250, 1000, 3900, 7000, 9000}) {
        for (const int red : {0, 40, 127, 128, 201, 255}) {
            const test::Picture picture = coloursWithRed(static_cast<std::uint8_t>(red));
            test::Picture expected = picture;
            test::EventLog log;
            recipes::contrast(expected, level, log);
            cDIB surface;
            toSurface(picture, surface);
            cDIBFilter().Contrast(surface, level);
            ASSERT_EQ(firstDifference(expected, test::fromSurface(surface)), "") << level << ' ' << red;
        }
    }
}

}  // namespace
}  // namespace mobrel
