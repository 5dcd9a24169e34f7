// SPDX-License-Identifier: MIT
#include "filters/kernels/contrast_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/contrast_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// Numbers of 16 bits.
using Integers = hn::RebindToSigned<Words>;
using IntegerVector = hn::Vec<Integers>;

/// A line of 16-bit numbers.
struct Line {
    IntegerVector centre;
    IntegerVector whole;
    IntegerVector fraction;

    HWY_INLINE explicit Line(const ContrastLine& line)
        : centre(hn::Set(Integers(), line.centre)),
          whole(hn::Set(Integers(), line.whole)),
          fraction(hn::Set(Integers(), line.fraction)) {}

    HWY_INLINE IntegerVector at(IntegerVector i) const {
        const Integers d;
        const Words words;
        const IntegerVector distance = hn::Sub(i, centre);
        const IntegerVector below =
            hn::Add(hn::Add(hn::Mul(distance, whole), hn::MulHigh(distance, fraction)), centre);
        // The low half of the product and 0x7FFF, or one more where `below` is odd, carry into bit 16.
        const auto rest = hn::BitCast(words, hn::Mul(distance, fraction));
        const auto isOdd = hn::BitCast(words, hn::And(below, hn::Set(d, 1)));
        const auto carry = hn::ShiftRight<15>(hn::AverageRound(rest, hn::Or(hn::Set(words, 0x7FFE), isOdd)));
        return hn::Add(below, hn::BitCast(d, carry));
    }
};

std::array<std::int16_t, 256> pointsOf(const ContrastLine& contrastLine) {
    const Integers d;
    const Line line(contrastLine);
    std::array<std::int16_t, 256> points;
    for (std::size_t i = 0; i < points.size(); i += hn::Lanes(d)) {
        hn::StoreU(line.at(hn::Iota(d, static_cast<std::int16_t>(i))), d, &points[i]);
    }
    return points;
}

/// Channels of pixels on their way back into the range of a byte.
struct Channels {
    IntegerVector b;
    IntegerVector g;
    IntegerVector r;

    HWY_INLINE IntegerVector highest() const { return hn::Max(hn::Max(b, g), r); }
    HWY_INLINE IntegerVector lowest() const { return hn::Min(hn::Min(b, g), r); }
};

/// Brings `clipped` into range and moves half of its excess, truncated toward zero, to each of the others
/// where that `moves`.
HWY_INLINE void resolveChannel(IntegerVector& clipped, IntegerVector& second, IntegerVector& third,
                               hn::Mask<Integers> moves) {
    const Integers d;
    const IntegerVector limited = hn::Min(hn::Max(clipped, hn::Zero(d)), hn::Set(d, 255));
    const IntegerVector excess = hn::Sub(clipped, limited);
    const IntegerVector half = hn::ShiftRight<1>(hn::Sub(excess, hn::ShiftRight<15>(excess)));
    const IntegerVector moved = hn::IfThenElseZero(moves, half);
    second = hn::Add(second, moved);
    third = hn::Add(third, moved);
    clipped = limited;
}

/// kept: blue, green, red in this order on running values. Nothing moves in a pixel whose channels are all 0
/// or below, or all 255 or above; what is in range stays.
HWY_INLINE void resolveClipping(Channels& c) {
    const Integers d;
    for (;;) {
        const IntegerVector highest = c.highest();
        const IntegerVector lowest = c.lowest();
        const auto isOut = hn::Or(hn::Gt(highest, hn::Set(d, 255)), hn::Lt(lowest, hn::Zero(d)));
        if (hn::AllFalse(d, isOut)) return;
        const auto moves = hn::And(hn::Gt(highest, hn::Zero(d)), hn::Lt(lowest, hn::Set(d, 255)));
        resolveChannel(c.b, c.g, c.r, moves);
        resolveChannel(c.g, c.b, c.r, moves);
        resolveChannel(c.r, c.g, c.b, moves);
    }
}

/// Numbers of the lower halves of the lanes of one vector and those of another.
HWY_INLINE IntegerVector paired(PixelVector lower, PixelVector upper) {
    return hn::BitCast(Integers(), hn::Or(lower, hn::ShiftLeft<16>(upper)));
}

std::size_t stretchContrast(std::uint8_t* row, std::size_t count, const ContrastLine& contrastLine) {
    const Pixels d;
    const Line line(contrastLine);
    const std::size_t half = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + 2 * half <= count; done += 2 * half) {
        std::uint8_t* const lowerAt = row + done * 4;
        std::uint8_t* const upperAt = lowerAt + half * 4;
        loadAhead(lowerAt);
        loadAhead(upperAt);
        const PixelVector lower = load(d, lowerAt);
        const PixelVector upper = load(d, upperAt);
        Channels c{line.at(paired(channel<0>(lower), channel<0>(upper))),
                   line.at(paired(channel<8>(lower), channel<8>(upper))),
                   line.at(paired(channel<16>(lower), channel<16>(upper)))};
        resolveClipping(c);
        const PixelVector blueGreen = hn::BitCast(d, hn::Or(c.b, hn::ShiftLeft<8>(c.g)));
        const PixelVector red = hn::BitCast(d, c.r);
        const PixelVector low = hn::Set(d, 0xFFFF);
        store(withColours(hn::Or(hn::And(blueGreen, low), hn::ShiftLeft<16>(red)), lower), d, lowerAt);
        store(withColours(hn::Or(hn::ShiftRight<16>(blueGreen), hn::AndNot(low, red)), upper), d, upperAt);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(pointsOf);
MOBREL_VECTOR_KERNEL(stretchContrast);

}  // namespace mobrel::kernels

#endif
