// SPDX-License-Identifier: MIT
// Blocks of many rows and columns, and the quotients of their sums.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "filters/cDIBFilter.hpp"
#include "filters/kernels/pixelize_vectors.hpp"
#include "support/FilterRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

// A quotient is nearest to the next whole number where one is missing to it.
TEST(Pixelize, DivideExactly) {
    constexpr std::size_t kSums = 512;
    for (std::int32_t count = 1; count <= kernels::kMostCount; count += count < 300 ? 1 : 101) {
        std::array<std::uint32_t, kSums> sums{};
        for (std::size_t i = 0; i < kSums; ++i) {
            const std::size_t whole = (i + 1) / 2 * static_cast<std::size_t>(count);
            sums[i] = static_cast<std::uint32_t>(i % 2 == 1 ? whole - 1 : whole);
        }
        std::array<std::uint8_t, kSums> means{};
        const std::size_t done = kernels::divideSums(sums.data(), kSums - 1, count, means.data());
        for (std::size_t i = 0; i < done; ++i) ASSERT_EQ(means[i], i / 2) << sums[i] << " by " << count;
    }
}

TEST(Pixelize, MayHaveMoreRowsThanAreReadAtOnce) {
    for (const test::PictureSize size : {test::PictureSize{1045, 20}, {5, 600}, {300, 300}}) {
        for (const int blockSize : {1, 7, 100, 256, 257, 300, 513, 2000}) {
            for (const auto& [name, picture] : test::sweepPictures(size)) {
                test::Picture expected = picture;
                test::EventLog log;
                recipes::pixelize(expected, blockSize, log);
                cDIB surface;
                toSurface(picture, surface);
                cDIBFilter().Pixelize(surface, blockSize);
                ASSERT_EQ(firstDifference(expected, test::fromSurface(surface)), "") << name << blockSize;
            }
        }
    }
}

}  // namespace
}  // namespace mobrel
