// SPDX-License-Identifier: MIT
// Pixels to planes and back with each set of instructions, over every value there is.
#include "platform/drawing/scaling/plane_vectors.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/OnlyTarget.hpp"

namespace mobrel {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Words = std::vector<std::uint16_t>;

constexpr int kChannels = 3;

/// A different value in each channel and, while 256 pixels pass, in each pixel.
std::uint8_t component(std::size_t pixel, int channel) {
    return static_cast<std::uint8_t>(pixel + 85U * static_cast<unsigned>(channel));
}

TEST(PlaneVectors, TakePixelsApart) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (std::size_t count = 1; count <= 300; ++count) {
            Bytes pixels;
            for (std::size_t i = 0; i < count; ++i) {
                for (int channel = 0; channel <= kChannels; ++channel) {
                    pixels.push_back(component(i, channel));
                }
            }
            Words planes[kChannels] = {Words(count), Words(count), Words(count)};
            const std::size_t done = kernels::deinterleavePixels(
                pixels.data(), count, {planes[0].data(), planes[1].data(), planes[2].data()});
            for (int channel = 0; channel < kChannels; ++channel) {
                Words expected(count);
                for (std::size_t i = 0; i < done; ++i) {
                    expected[i] = static_cast<std::uint16_t>(128 * component(i, channel) + 16448);
                }
                EXPECT_EQ(planes[channel], expected) << count << " pixels, channel " << channel;
            }
            all += done;
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

/// The channels begin at different values.
std::uint16_t planeValue(std::size_t pixel, int channel) {
    return static_cast<std::uint16_t>(pixel + 20000U * static_cast<unsigned>(channel));
}

TEST(PlaneVectors, PutEveryValueOfPlanesTogether) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (const std::size_t count : {1U, 7U, 15U, 31U, 33U, 65536U}) {
            Words planes[kChannels];
            for (std::size_t i = 0; i < count; ++i) {
                for (int channel = 0; channel < kChannels; ++channel) {
                    planes[channel].push_back(planeValue(i, channel));
                }
            }
            Bytes pixels(count * 4, 0xA5);
            const std::size_t done = kernels::interleavePixels(
                {planes[0].data(), planes[1].data(), planes[2].data()}, count, pixels.data());
            Bytes expected(count * 4, 0xA5);
            for (std::size_t i = 0; i < done; ++i) {
                for (int channel = 0; channel < kChannels; ++channel) {
                    const int value = (planeValue(i, channel) - 16448 + 64) >> 7;
                    expected[i * 4 + static_cast<std::size_t>(channel)] =
                        static_cast<std::uint8_t>(std::clamp(value, 0, 255));
                }
                expected[i * 4 + 3] = 0;
            }
            EXPECT_TRUE(pixels == expected) << count;
            all += done;
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

}  // namespace
}  // namespace mobrel
