// SPDX-License-Identifier: MIT
// Pixels in vectors, one a lane, for kernels that are compiled once for each set of instructions. Empty where
// one lane is no vector.
#if defined(MOBREL_PIXEL_VECTORS_INL_HPP) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_PIXEL_VECTORS_INL_HPP
#undef MOBREL_PIXEL_VECTORS_INL_HPP
#else
#define MOBREL_PIXEL_VECTORS_INL_HPP
#endif

#include <hwy/highway.h>

#include <cstddef>
#include <cstdint>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET != HWY_SCALAR

namespace hn = hwy::HWY_NAMESPACE;

/// One pixel a lane.
using Integers = hn::ScalableTag<std::int32_t>;
using Halves = hn::Half<Integers>;
using Doubles = hn::RebindToFloat<hn::RepartitionToWide<Integers> >;
using IntegerVector = hn::Vec<Integers>;
using DoubleVector = hn::Vec<Doubles>;

HWY_INLINE IntegerVector load(const std::uint8_t* pixels) {
    return hn::BitCast(Integers(), hn::LoadU(hn::Repartition<std::uint8_t, Integers>(), pixels));
}
HWY_INLINE void store(IntegerVector pixels, std::uint8_t* to) {
    const hn::Repartition<std::uint8_t, Integers> bytes;
    hn::StoreU(hn::BitCast(bytes, pixels), bytes, to);
}

template <int kShift>
HWY_INLINE IntegerVector channel(IntegerVector pixels) {
    return hn::And(hn::ShiftRight<kShift>(pixels), hn::Set(Integers(), 0xFF));
}

/// Whole numbers as doubles, the lower half of the lanes and the upper one.
struct Numbers {
    DoubleVector lower;
    DoubleVector upper;

    HWY_INLINE explicit Numbers(IntegerVector v)
        : lower(hn::PromoteTo(Doubles(), hn::LowerHalf(Halves(), v))),
          upper(hn::PromoteTo(Doubles(), hn::UpperHalf(Halves(), v))) {}
    HWY_INLINE explicit Numbers(double value) : lower(hn::Set(Doubles(), value)), upper(lower) {}
    HWY_INLINE Numbers(DoubleVector lowerHalf, DoubleVector upperHalf) : lower(lowerHalf), upper(upperHalf) {}

    HWY_INLINE IntegerVector rounded() const {
        return hn::Combine(Integers(), hn::DemoteTo(Halves(), hn::Round(upper)),
                           hn::DemoteTo(Halves(), hn::Round(lower)));
    }
};
HWY_INLINE Numbers operator+(const Numbers& a, const Numbers& b) {
    return {hn::Add(a.lower, b.lower), hn::Add(a.upper, b.upper)};
}
HWY_INLINE Numbers operator-(const Numbers& a, const Numbers& b) {
    return {hn::Sub(a.lower, b.lower), hn::Sub(a.upper, b.upper)};
}
HWY_INLINE Numbers operator*(const Numbers& a, const Numbers& b) {
    return {hn::Mul(a.lower, b.lower), hn::Mul(a.upper, b.upper)};
}
HWY_INLINE Numbers magnitude(const Numbers& a) {
    return {hn::Abs(a.lower), hn::Abs(a.upper)};
}

HWY_INLINE IntegerVector limited(IntegerVector v) {
    return hn::Min(hn::Max(v, hn::Zero(Integers())), hn::Set(Integers(), 255));
}

HWY_INLINE IntegerVector sumOfChannels(IntegerVector pixels) {
    return hn::Add(hn::Add(channel<0>(pixels), channel<8>(pixels)), channel<16>(pixels));
}

/// The colours with byte 3 of `pixels`.
HWY_INLINE IntegerVector joined(IntegerVector b, IntegerVector g, IntegerVector r, IntegerVector pixels) {
    const IntegerVector colours = hn::Or(hn::Or(b, hn::ShiftLeft<8>(g)), hn::ShiftLeft<16>(r));
    return hn::Or(colours, hn::AndNot(hn::Set(Integers(), 0x00FFFFFF), pixels));
}

/// Calls work(first byte of a vector of pixels) as often as whole vectors are there. `fresh` is the row that
/// comes from memory.
template <typename Work>
HWY_INLINE std::size_t forVectors(const std::uint8_t* fresh, std::size_t count, const Work& work) {
    const std::size_t step = hn::Lanes(Integers());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(fresh + done * 4);
        work(done * 4);
    }
    return done;
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif
