// SPDX-License-Identifier: MIT
#include "filters/kernels/diffuse_noise_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/diffuse_noise_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// Round(2 range random + centre - range), where centre decides which way a tie goes. With the 24 bits n of
/// the number that is range (n - 2^23) / 2^23 + centre.
HWY_INLINE IntegerVector scattered(IntegerVector n, std::int32_t range, IntegerVector centre) {
    const Integers d;
    const IntegerVector distance = hn::Mul(hn::Sub(n, hn::Set(d, 1 << 23)), hn::Set(d, range));
    const IntegerVector isOdd = hn::And(hn::Add(hn::ShiftRight<23>(distance), centre), hn::Set(d, 1));
    const IntegerVector nearly = hn::Add(distance, hn::Set(d, (1 << 22) - 1));
    return hn::Add(hn::ShiftRight<23>(hn::Add(nearly, isOdd)), centre);
}

std::size_t addNoise(std::uint8_t* row, std::size_t count, std::int32_t level, const std::uint32_t* bits) {
    const Integers d;
    const Bytes bytes;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(row + done * 4);
        const IntegerVector n = hn::BitCast(d, hn::LoadU(Pixels(), bits + done));
        const IntegerVector amount = scattered(n, level, hn::Zero(d));
        const IntegerVector colour = hn::Mul(hn::Abs(amount), hn::Set(d, 0x010101));
        const auto isDarker = hn::Lt(amount, hn::Zero(d));
        const auto increase = hn::BitCast(bytes, hn::IfThenZeroElse(isDarker, colour));
        const auto decrease = hn::BitCast(bytes, hn::IfThenElseZero(isDarker, colour));
        const ByteVector pixels = load(bytes, row + done * 4);
        store(hn::SaturatedSub(hn::SaturatedAdd(pixels, increase), decrease), bytes, row + done * 4);
    }
    return done;
}

/// The slots of rows in a ring, told by their distances from a slot, less than once around.
HWY_INLINE IntegerVector slotsAt(IntegerVector distances, std::int32_t slot, std::int32_t count) {
    const Pixels d;
    const PixelVector around = hn::Set(d, static_cast<std::uint32_t>(count));
    PixelVector s = hn::BitCast(d, hn::Add(distances, hn::Set(Integers(), slot)));
    s = hn::Min(s, hn::Add(s, around));  // a negative number is a large one here
    s = hn::Min(s, hn::Sub(s, around));
    return hn::BitCast(Integers(), s);
}

HWY_INLINE IntegerVector held(IntegerVector place, std::int32_t last) {
    const Integers d;
    return hn::Min(hn::Max(place, hn::Zero(d)), hn::Set(d, last));
}

std::size_t scatterPlaces(const KeptRows& from, Place at, Place range, std::size_t count,
                          const std::uint32_t* bits, std::int32_t* found) {
    const Integers d;
    const std::size_t step = hn::Lanes(d);
    const std::int32_t slot = at.y % from.kept;
    const IntegerVector row = hn::Set(d, at.y);
    const IntegerVector width = hn::Set(d, from.width);
    IntegerVector column = hn::Iota(d, at.x);
    const std::int32_t lastColumn = from.width - 1;
    const std::int32_t lastRow = from.height - 1;
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        PixelVector u;
        PixelVector v;
        hn::LoadInterleaved2(Pixels(), bits + done * 2, u, v);
        const IntegerVector x = held(scattered(hn::BitCast(d, u), range.x, column), lastColumn);
        const IntegerVector y = held(scattered(hn::BitCast(d, v), range.y, row), lastRow);
        const IntegerVector slots = slotsAt(hn::Sub(y, row), slot, from.kept);
        hn::StoreU(hn::Add(hn::Mul(slots, width), x), d, found + done);
        column = hn::Add(column, hn::Set(d, static_cast<std::int32_t>(step)));
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(addNoise);
MOBREL_VECTOR_KERNEL(scatterPlaces);

}  // namespace mobrel::kernels

#endif
