// SPDX-License-Identifier: MIT
// Random amounts and places in whole numbers are those of the double products, for every random number.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "filters/kernels/diffuse_noise_vectors.hpp"
#include "platform/base/RandomSource.hpp"

namespace mobrel::kernels {
namespace {

constexpr std::uint32_t kNumbers = std::uint32_t{1} << 24;
constexpr std::size_t kCount = 64;

int nearest(std::uint32_t bits, int range, int centre) {
    const double random = RandomSource::number(bits);
    return static_cast<int>(std::nearbyint(random * (2 * range) + centre - range));
}

int limited(int value, int last) {
    return std::clamp(value, 0, last);
}

TEST(DiffuseNoise, NoiseRoundsAsDoublesDo) {
    for (const int level : {1, 5, 64, 255, -128}) {
        for (std::uint32_t first = 0; first < kNumbers; first += kCount) {
            std::array<std::uint32_t, kCount> bits;
            for (std::size_t i = 0; i < kCount; ++i) bits[i] = first + static_cast<std::uint32_t>(i);
            std::array<std::array<std::uint8_t, 4>, kCount> row;
            row.fill({0, 255, 100, 7});
            const std::size_t done = addNoise(row.front().data(), kCount, level, bits.data());
            for (std::size_t i = 0; i < done; ++i) {
                const int amount = nearest(bits[i], level, 0);
                ASSERT_EQ(row[i][0], limited(amount, 255)) << level << ' ' << bits[i];
                ASSERT_EQ(row[i][1], limited(255 + amount, 255)) << level << ' ' << bits[i];
                ASSERT_EQ(row[i][2], limited(100 + amount, 255)) << level << ' ' << bits[i];
                ASSERT_EQ(row[i][3], 7) << level << ' ' << bits[i];
            }
        }
    }
}

// A tie goes to the even place, so that it depends on the pixel it starts from.
TEST(DiffuseNoise, PlacesRoundAsDoublesDo) {
    constexpr int kSide = 500;
    const KeptRows whole{nullptr, kSide, kSide, kSide};
    constexpr Place kStarts[] = {{200, 201}, {201, 200}, {0, kSide - 1}};
    constexpr Place kRanges[] = {{1, 2}, {255, 255}, {64, -128}};
    for (std::size_t c = 0; c < std::size(kStarts); ++c) {
        const Place at = kStarts[c];
        const Place range = kRanges[c];
        for (std::uint32_t first = 0; first < kNumbers; first += kCount) {
            std::array<std::uint32_t, kCount * 2> bits;
            for (std::size_t i = 0; i < kCount; ++i) {
                bits[i * 2] = first + static_cast<std::uint32_t>(i);
                bits[i * 2 + 1] = kNumbers - 1 - bits[i * 2];
            }
            std::array<std::int32_t, kCount> places;
            const std::size_t done = scatterPlaces(whole, at, range, kCount, bits.data(), places.data());
            for (std::size_t i = 0; i < done; ++i) {
                const int centre = at.x + static_cast<int>(i);
                const int x = limited(nearest(bits[i * 2], range.x, centre), kSide - 1);
                const int y = limited(nearest(bits[i * 2 + 1], range.y, at.y), kSide - 1);
                ASSERT_EQ(places[i], y * kSide + x) << range.x << ' ' << range.y << ' ' << bits[i * 2];
            }
        }
    }
}

}  // namespace
}  // namespace mobrel::kernels
