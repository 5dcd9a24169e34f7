// SPDX-License-Identifier: MIT
// Samples of pixels as numbers in vectors. Read once for each set of instructions, hence no pragma.
#if defined(MOBREL_NUMBER_LANES_INL_HPP) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_NUMBER_LANES_INL_HPP
#undef MOBREL_NUMBER_LANES_INL_HPP
#else
#define MOBREL_NUMBER_LANES_INL_HPP
#endif

#include <hwy/highway.h>

#include <cstdint>

#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// One sample of each pixel.
using Integers = hn::RebindToSigned<Pixels>;
using Halves = hn::Half<Integers>;
using Doubles = hn::RebindToFloat<hn::RepartitionToWide<Integers> >;
using IntegerVector = hn::Vec<Integers>;
using DoubleVector = hn::Vec<Doubles>;

/// One channel of pixels that are given by their bytes.
template <int kShift>
HWY_INLINE IntegerVector samples(ByteVector pixels) {
    return channel<kShift>(hn::BitCast(Integers(), pixels));
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
    return withColours(hn::Or(hn::Or(b, hn::ShiftLeft<8>(g)), hn::ShiftLeft<16>(r)), pixels);
}

/// The bytes at even places and those at odd ones, as numbers of 16 bits.
struct WordPair {
    WordVector even;
    WordVector odd;

    HWY_INLINE WordPair(WordVector evens, WordVector odds) : even(evens), odd(odds) {}
    HWY_INLINE explicit WordPair(ByteVector bytes)
        : even(hn::And(hn::BitCast(Words(), bytes), hn::Set(Words(), 0xFF))),
          odd(hn::ShiftRight<8>(hn::BitCast(Words(), bytes))) {}

    HWY_INLINE void add(ByteVector bytes) {
        const WordPair summand(bytes);
        even = hn::Add(even, summand.even);
        odd = hn::Add(odd, summand.odd);
    }
    /// For numbers that fit a byte.
    HWY_INLINE ByteVector bytes() const { return hn::BitCast(Bytes(), hn::Or(even, hn::ShiftLeft<8>(odd))); }
};

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif
#endif
