// SPDX-License-Identifier: MIT
#include "filters/kernels/salt_and_pepper_vectors.hpp"

#include <algorithm>

#define HWY_TARGET_INCLUDE "filters/kernels/salt_and_pepper_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// n div 12 is the upper half of a product for the sum of any 12 bytes.
constexpr std::uint16_t kTwelfth = 5462;
constexpr bool givesTwelfths(std::uint32_t factor) {
    for (std::uint32_t n = 0; n <= 12 * 255; ++n) {
        if (n * factor >> 16 != n / 12) return false;
    }
    return true;
}
static_assert(givesTwelfths(kTwelfth));

HWY_INLINE WordVector twelfth(WordVector n) {
    return hn::MulHigh(n, hn::Set(Words(), kTwelfth));
}

/// The pixels around and in the blocks that start at a vector of columns.
struct Blocks {
    const std::uint8_t* const* rows;
    std::size_t x;

    HWY_INLINE ByteVector at(int row, std::size_t column) const {
        return load(Bytes(), rows[row] + (x - 1 + column) * 4);
    }
    HWY_INLINE ByteVector ringMeans() const {
        WordPair sum(hn::Zero(Bytes()));
        for (std::size_t column = 0; column < 4; ++column) {
            sum.add(at(0, column));
            sum.add(at(3, column));
        }
        for (const int row : {1, 2}) {
            sum.add(at(row, 0));
            sum.add(at(row, 3));
        }
        return WordPair(twelfth(sum.even), twelfth(sum.odd)).bytes();
    }
    /// The largest distance of a block's four samples from the mean.
    HWY_INLINE ByteVector distances() const {
        const ByteVector mean = ringMeans();
        const ByteVector a = at(1, 1), b = at(1, 2), c = at(2, 1), d = at(2, 2);
        const ByteVector largest = hn::Max(hn::Max(a, b), hn::Max(c, d));
        const ByteVector least = hn::Min(hn::Min(a, b), hn::Min(c, d));
        return hn::Max(hn::SaturatedSub(largest, mean), hn::SaturatedSub(mean, least));
    }
};

/// While no block changes, the pixels that the next ones see are those that are there.
std::size_t blocksThatStay(const std::uint8_t* const* rows, std::size_t x, std::size_t count,
                           std::int32_t threshold) {
    if (threshold < 0) return 0;
    const Pixels d;
    const ByteVector limit = hn::Set(Bytes(), static_cast<std::uint8_t>(std::min(threshold, 255)));
    const auto colours = hn::Set(d, 0x00FFFFFFU);
    std::size_t done = 0;
    for (; done + hn::Lanes(d) <= count; done += hn::Lanes(d)) {
        loadAhead(rows[3] + (x + done) * 4);
        const ByteVector excess = hn::SaturatedSub(Blocks{rows, x + done}.distances(), limit);
        const auto changes = hn::Ne(hn::And(hn::BitCast(d, excess), colours), hn::Zero(d));
        const std::intptr_t first = hn::FindFirstTrue(d, changes);
        if (first >= 0) return done + static_cast<std::size_t>(first);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(blocksThatStay);

}  // namespace mobrel::kernels

#endif
