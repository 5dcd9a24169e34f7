// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "filters/kernels/ring_vectors.hpp"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/ring_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t BlocksThatStay(const std::uint8_t* const*, std::size_t, std::size_t, std::int32_t) {
    return 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Words = hn::ScalableTag<std::uint16_t>;
using Pixels = hn::ScalableTag<std::uint32_t>;
using ByteVector = hn::Vec<Bytes>;
using WordVector = hn::Vec<Words>;

/// n div 12 is the upper half of a product for the sum of any 12 bytes.
constexpr std::uint16_t kTwelfth = 5462;
constexpr bool givesTwelfths(std::uint32_t factor) {
    for (std::uint32_t n = 0; n <= 12 * 255; ++n) {
        if (n * factor >> 16 != n / 12) return false;
    }
    return true;
}
static_assert(givesTwelfths(kTwelfth));

/// Sums of bytes, those at even places apart from those at odd ones.
struct Sums {
    WordVector even;
    WordVector odd;

    HWY_INLINE Sums() : even(hn::Zero(Words())), odd(hn::Zero(Words())) {}
    HWY_INLINE void add(ByteVector bytes) {
        const WordVector pairs = hn::BitCast(Words(), bytes);
        even = hn::Add(even, hn::And(pairs, hn::Set(Words(), 0x00FF)));
        odd = hn::Add(odd, hn::ShiftRight<8>(pairs));
    }
    static HWY_INLINE WordVector twelfth(WordVector n) { return hn::MulHigh(n, hn::Set(Words(), kTwelfth)); }
    HWY_INLINE ByteVector means() const {
        return hn::BitCast(Bytes(), hn::Or(twelfth(even), hn::ShiftLeft<8>(twelfth(odd))));
    }
};

/// The pixels around and in the blocks that start at a vector of columns.
struct Blocks {
    const std::uint8_t* const* rows;
    std::size_t x;

    HWY_INLINE ByteVector load(int row, std::size_t column) const {
        return hn::LoadU(Bytes(), rows[row] + (x - 1 + column) * 4);
    }
    HWY_INLINE ByteVector ringMeans() const {
        Sums sums;
        for (std::size_t column = 0; column < 4; ++column) {
            sums.add(load(0, column));
            sums.add(load(3, column));
        }
        for (const int row : {1, 2}) {
            sums.add(load(row, 0));
            sums.add(load(row, 3));
        }
        return sums.means();
    }
    /// The largest distance of a block's four samples from the mean.
    HWY_INLINE ByteVector distances() const {
        const ByteVector mean = ringMeans();
        const ByteVector a = load(1, 1), b = load(1, 2), c = load(2, 1), d = load(2, 2);
        const ByteVector largest = hn::Max(hn::Max(a, b), hn::Max(c, d));
        const ByteVector least = hn::Min(hn::Min(a, b), hn::Min(c, d));
        return hn::Max(hn::SaturatedSub(largest, mean), hn::SaturatedSub(mean, least));
    }
};

/// While no block changes, the pixels that the next ones see are those that are there.
std::size_t BlocksThatStay(const std::uint8_t* const* rows, std::size_t x, std::size_t count,
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

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(BlocksThatStay);

std::size_t blocksThatStay(const std::uint8_t* const rows[4], std::size_t x, std::size_t count,
                           std::int32_t threshold) {
    return MOBREL_BEST(BlocksThatStay)(rows, x, count, threshold);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
