// SPDX-License-Identifier: MIT
// The greys of WeightedGrey.hpp for vectors of pixels. Read once for each set of instructions, hence no
// pragma.
#if defined(MOBREL_GREY_LANES) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_GREY_LANES
#undef MOBREL_GREY_LANES
#else
#define MOBREL_GREY_LANES
#endif

#include <hwy/highway.h>

#include <cstdint>

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// One pixel a lane.
using Pixels = hn::CappedTag<std::uint32_t, 16>;
using PixelVector = hn::Vec<Pixels>;

HWY_INLINE PixelVector channel(PixelVector pixels, int shift) {
    return hn::And(hn::ShiftRightSame(pixels, shift), hn::Set(Pixels(), 0xFF));
}

/// (R + G + B) div 3: the product's upper half, of sums up to 765.
HWY_INLINE PixelVector plainGreys(PixelVector pixels) {
    const PixelVector sum = hn::Add(hn::Add(channel(pixels, 0), channel(pixels, 8)), channel(pixels, 16));
    return hn::ShiftRight<16>(hn::Mul(sum, hn::Set(Pixels(), 21846)));
}

/// Weighted greys, right where the sum of weights lies on no rounding tie.
struct WeightedGreys {
    PixelVector greys;
    hn::Mask<Pixels> isTie;

    HWY_INLINE explicit WeightedGreys(PixelVector pixels) {
        const Pixels d;
        // In thousandths, and a half.
        const PixelVector n = hn::Add(hn::Add(hn::Mul(channel(pixels, 8), hn::Set(d, 707)),
                                              hn::Mul(channel(pixels, 0), hn::Set(d, 71))),
                                      hn::Add(hn::Mul(channel(pixels, 16), hn::Set(d, 222)),  //
                                              hn::Set(d, 500)));
        // n div 1000 is (n div 8) div 125, and 33555 / 2^22 is so little above 1 / 125 that no quotient of a
        // number below 2^15 changes.
        const hn::Repartition<std::uint16_t, Pixels> words;
        const auto upper =
            hn::MulHigh(hn::BitCast(words, hn::ShiftRight<3>(n)), hn::BitCast(words, hn::Set(d, 33555)));
        greys = hn::ShiftRight<6>(hn::BitCast(d, upper));
        isTie = hn::Eq(hn::Mul(greys, hn::Set(d, 1000)), n);
    }
};

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif  // HWY_TARGET != HWY_SCALAR
#endif
