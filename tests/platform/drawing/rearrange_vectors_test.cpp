// SPDX-License-Identifier: MIT
// Vectors of whole pixels with each set of instructions: what is done is right, and nothing else is touched.
#include "platform/drawing/rearrange_vectors.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

#include "support/OnlyTarget.hpp"

namespace mobrel {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kMostPixels = 150;
constexpr std::uint8_t kUntouched = 0xA5;

/// Bytes that differ from each other and from kUntouched for a while.
Bytes counted(std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
    std::ranges::replace(bytes, kUntouched, std::uint8_t{0});
    return bytes;
}

TEST(RearrangeVectors, MirrorBothEndsOfARow) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (std::size_t count = 1; count <= kMostPixels; ++count) {
            const Bytes before = counted(count * 4);
            Bytes row = before;
            const std::size_t done = kernels::mirrorPixels(row.data(), count);
            Bytes expected = before;
            for (std::size_t x = 0; x < count; ++x) {
                const bool isMirrored = x < done || x >= count - done;
                std::copy_n(&before[(isMirrored ? count - 1 - x : x) * 4], 4, &expected[x * 4]);
            }
            EXPECT_LE(2 * done, count);
            EXPECT_EQ(row, expected) << count;
            all += done;
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

TEST(RearrangeVectors, PackPixelsWithoutByte3) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (std::size_t count = 1; count <= kMostPixels; ++count) {
            const Bytes pixels = counted(count * 4);
            Bytes packed(count * 3 + 64, kUntouched);
            const std::size_t done = kernels::packPixels(pixels.data(), count, packed.data());
            std::size_t wrong = 0;
            for (std::size_t i = 0; i < done * 3; ++i) wrong += packed[i] != pixels[i / 3 * 4 + i % 3];
            EXPECT_EQ(wrong, 0U) << count;
            EXPECT_LE(done, count);
            EXPECT_EQ(Bytes(packed.end() - 64, packed.end()), Bytes(64, kUntouched)) << count;
            all += done;
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

TEST(RearrangeVectors, ExpandPixelsWithByte3Zero) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (std::size_t count = 1; count <= kMostPixels; ++count) {
            const Bytes packed = counted(count * 3);
            Bytes pixels(count * 4 + 64, kUntouched);
            const std::size_t done = kernels::expandPixels(packed.data(), count, pixels.data());
            std::size_t wrong = 0;
            for (std::size_t i = 0; i < done * 4; ++i) {
                wrong += pixels[i] != (i % 4 == 3 ? 0 : packed[i / 4 * 3 + i % 4]);
            }
            EXPECT_EQ(wrong, 0U) << count;
            EXPECT_LE(done, count);
            const auto rest = pixels.begin() + static_cast<std::ptrdiff_t>(done * 4);
            EXPECT_TRUE(std::all_of(rest, pixels.end(), [](auto byte) { return byte == kUntouched; }))
                << count;
            all += done;
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

TEST(RearrangeVectors, RepeatEachPixel) {
    const int useful = test::usefulTargets([] {
        std::size_t all = 0;
        for (std::size_t times = 1; times <= kernels::kMostTimes + 1; ++times) {
            for (std::size_t count = 0; count <= 40; ++count) {
                const Bytes pixels = counted(count * 4);
                Bytes repeated(count * times * 4 + 64, kUntouched);
                Bytes expected = repeated;
                const std::size_t done = kernels::repeatPixels(pixels.data(), count, times, repeated.data());
                EXPECT_LE(done, count);
                for (std::size_t i = 0; i < done * times; ++i) {
                    std::copy_n(&pixels[i / times * 4], 4, &expected[i * 4]);
                }
                EXPECT_EQ(repeated, expected) << count << " pixels " << times << " times";
                all += done;
            }
        }
        return all > 0;
    });
    EXPECT_GT(useful, 0);
}

TEST(RearrangeVectors, TransposeATileInAnyOrderOfLines) {
    constexpr std::ptrdiff_t kSide = kernels::kTileSide;
    constexpr std::ptrdiff_t kStride = (kSide + 3) * 4;  // lines of larger pictures
    const int useful = test::usefulTargets([] {
        bool isDone = false;
        for (const std::ptrdiff_t order : {1, -1}) {
            const Bytes from = counted(static_cast<std::size_t>(kStride * kSide));
            Bytes to(from.size(), kUntouched);
            const std::ptrdiff_t first = order > 0 ? 0 : kStride * (kSide - 1);
            isDone = kernels::transposeTile({from.data() + first, order * kStride}, {to.data(), kStride});
            Bytes expected(to.size(), kUntouched);
            for (std::ptrdiff_t y = 0; isDone && y < kSide; ++y) {
                for (std::ptrdiff_t x = 0; x < kSide; ++x) {
                    const std::uint8_t* const pixel = from.data() + first + order * kStride * y + x * 4;
                    std::copy_n(pixel, 4, expected.data() + kStride * x + y * 4);
                }
            }
            EXPECT_EQ(to, expected);
        }
        return isDone;
    });
    EXPECT_GT(useful, 0);
}

}  // namespace
}  // namespace mobrel
