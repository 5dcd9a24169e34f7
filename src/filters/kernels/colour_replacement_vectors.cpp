// SPDX-License-Identifier: MIT
#include "filters/kernels/colour_replacement_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/colour_replacement_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

using Floats = hn::RebindToFloat<Integers>;
using FloatVector = hn::Vec<Floats>;
using PixelMask = hn::Mask<Integers>;

HWY_INLINE IntegerVector squaredDifference(IntegerVector c, int centre) {
    const IntegerVector difference = hn::Sub(c, hn::Set(Integers(), centre));
    return hn::Mul(difference, difference);
}

HWY_INLINE IntegerVector squaredDistance(IntegerVector pixels, const mHSL::Rgb& centre) {
    return hn::Add(hn::Add(squaredDifference(channel<0>(pixels), centre.B),
                           squaredDifference(channel<8>(pixels), centre.G)),
                   squaredDifference(channel<16>(pixels), centre.R));
}

/// What a conversion to a float and back leaves.
HWY_INLINE DoubleVector stored(DoubleVector v) {
    return hn::PromoteTo(Doubles(), hn::DemoteTo(hn::Rebind<float, Doubles>(), v));
}

HWY_INLINE DoubleVector weight(DoubleVector distance, std::int32_t squaredRadius) {
    const Doubles d;
    const DoubleVector part = hn::Div(distance, hn::Set(d, static_cast<double>(squaredRadius)));
    return stored(hn::Sub(hn::Set(d, 1), part));
}

/// Moves the pixels of the sphere that `Choice` selects to where it has them go. No result leaves a byte, as
/// it lies between the channel and its target.
template <typename Choice>
struct MoveWork {
    std::uint8_t* row;
    ColourSphere sphere;
    Choice choice;

    static HWY_INLINE IntegerVector moved(IntegerVector c, IntegerVector target, const Numbers& weights) {
        return (weights * Numbers(hn::Sub(target, c)) + Numbers(c)).rounded();
    }
    /// The weight of a pixel that stays is that of the edge, 0.
    HWY_INLINE Numbers weights(IntegerVector distance, PixelMask isSelected) const {
        const IntegerVector edge = hn::Set(Integers(), sphere.squaredRadius());
        const Numbers distances(hn::IfThenElse(isSelected, distance, edge));
        return {weight(distances.lower, sphere.squaredRadius()),
                weight(distances.upper, sphere.squaredRadius())};
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const Integers d;
        const IntegerVector pixels = load(Integers(), row + at);
        const IntegerVector distance = squaredDistance(pixels, sphere.centre());
        const PixelMask isInside = hn::Lt(distance, hn::Set(d, sphere.squaredRadius()));
        if (hn::AllFalse(d, isInside)) return;
        const PixelMask isSelected = hn::And(isInside, choice.selects(pixels, isInside));
        if (hn::AllFalse(d, isSelected)) return;
        const Numbers by = weights(distance, isSelected);
        const IntegerVector b = channel<0>(pixels);
        const IntegerVector g = channel<8>(pixels);
        const IntegerVector r = channel<16>(pixels);
        store(joined(moved(b, choice.blue(b), by), moved(g, choice.green(g), by), moved(r, choice.red(r), by),
                     pixels),
              Integers(), row + at);
    }
};

/// All pixels, each channel by the increment, limited to a byte.
struct Shifting {
    std::int32_t increment;

    static HWY_INLINE PixelMask selects(IntegerVector, PixelMask isInside) { return isInside; }
    HWY_INLINE IntegerVector blue(IntegerVector b) const { return shifted(b); }
    HWY_INLINE IntegerVector green(IntegerVector g) const { return shifted(g); }
    HWY_INLINE IntegerVector red(IntegerVector r) const { return shifted(r); }
    HWY_INLINE IntegerVector shifted(IntegerVector c) const {
        return limited(hn::Add(c, hn::Set(Integers(), increment)));
    }
};

/// Every channel towards that of one colour.
struct Replacing {
    mHSL::Rgb target;

    HWY_INLINE IntegerVector blue(IntegerVector) const { return hn::Set(Integers(), target.B); }
    HWY_INLINE IntegerVector green(IntegerVector) const { return hn::Set(Integers(), target.G); }
    HWY_INLINE IntegerVector red(IntegerVector) const { return hn::Set(Integers(), target.R); }
};

struct ReplacingBySum : Replacing {
    std::int32_t centreSum;
    std::int32_t mostDifference;

    HWY_INLINE PixelMask selects(IntegerVector pixels, PixelMask) const {
        const Integers d;
        const IntegerVector difference = hn::Abs(hn::Sub(sumOfChannels(pixels), hn::Set(d, centreSum)));
        return hn::Lt(difference, hn::Set(d, mostDifference + 1));
    }
};

/// What mHSL::RGBToHSL reckons with: H is offset + (first - second) / (largest - smallest).
template <typename Vector>
struct HueNumbers {
    Vector largest;
    Vector smallest;
    Vector first;
    Vector second;
    Vector offset;
};

HWY_INLINE HueNumbers<FloatVector> hueNumbers(FloatVector r, FloatVector g, FloatVector b) {
    const Floats d;
    const FloatVector largest = hn::Max(r, hn::Max(g, b));
    const auto isRed = hn::Eq(r, largest);
    const auto isGreen = hn::Eq(g, largest);
    return {largest, hn::Min(r, hn::Min(g, b)), hn::IfThenElse(isRed, g, hn::IfThenElse(isGreen, b, r)),
            hn::IfThenElse(isRed, b, hn::IfThenElse(isGreen, r, g)),
            hn::IfThenZeroElse(isRed, hn::IfThenElse(isGreen, hn::Set(d, 2), hn::Set(d, 4)))};
}

HWY_INLINE DoubleVector lowerHalf(FloatVector v) {
    return hn::PromoteTo(Doubles(), hn::LowerHalf(hn::Half<Floats>(), v));
}
HWY_INLINE DoubleVector upperHalf(FloatVector v) {
    return hn::PromoteTo(Doubles(), hn::UpperHalf(hn::Half<Floats>(), v));
}

/// By how much a value passes the tolerance about a centre.
template <class D>
HWY_INLINE hn::Vec<D> excess(D d, hn::Vec<D> value, float centre, float tolerance) {
    return hn::Sub(hn::Abs(hn::Sub(value, hn::Set(d, centre))), hn::Set(d, tolerance));
}

struct ReplacingByHue : Replacing {
    HueSaturationRange range;

    /// By how much a pixel passes the range, above 0 where it does. Hue and saturation of a grey are 0.
    template <class D>
    HWY_INLINE hn::Vec<D> excessOf(D d, const HueNumbers<hn::Vec<D> >& n, hn::Vec<D> hue,
                                   hn::Vec<D> saturation) const {
        const auto isGrey = hn::Eq(n.largest, n.smallest);
        return hn::Max(
            excess(d, hn::IfThenZeroElse(isGrey, hue), range.centre.H, range.hueTolerance),
            excess(d, hn::IfThenZeroElse(isGrey, saturation), range.centre.S, range.saturationTolerance));
    }
    /// From whole channels, in single precision, and off by less than 2^-14 where it is below 1: what
    /// RGBToHSL divides is off by 2^-24 at most, a stored divisor by half as much again, both against a
    /// divisor of at least 1 / 255. All other roundings together add less than 2^-19.
    HWY_INLINE FloatVector roughExcess(IntegerVector pixels) const {
        const Floats d;
        const HueNumbers<FloatVector> n =
            hueNumbers(hn::ConvertTo(d, channel<16>(pixels)), hn::ConvertTo(d, channel<8>(pixels)),
                       hn::ConvertTo(d, channel<0>(pixels)));
        const FloatVector spread = hn::Sub(n.largest, n.smallest);
        const FloatVector sum = hn::Add(n.largest, n.smallest);
        const FloatVector lesser = hn::Min(sum, hn::Sub(hn::Set(d, 510), sum));
        const FloatVector hue = hn::Add(n.offset, hn::Div(hn::Sub(n.first, n.second), spread));
        return excessOf(d, n, hue, hn::Div(spread, lesser));
    }
    /// In the precision of mHSL::RGBToHSL.
    HWY_INLINE DoubleVector exactExcess(const HueNumbers<DoubleVector>& n) const {
        const Doubles d;
        const DoubleVector half = hn::Set(d, 0.5);
        const DoubleVector spread = hn::Sub(n.largest, n.smallest);
        const DoubleVector sum = hn::Add(n.largest, n.smallest);
        const DoubleVector rest = hn::Sub(hn::Sub(hn::Set(d, 2), n.largest), n.smallest);
        const auto isBright = hn::Gt(stored(hn::Mul(sum, half)), half);
        const DoubleVector saturation = hn::Div(spread, hn::IfThenElse(isBright, rest, sum));
        const DoubleVector hue = hn::Add(n.offset, hn::Div(hn::Sub(n.first, n.second), stored(spread)));
        return excessOf(d, n, stored(hue), stored(saturation));
    }
    static HWY_INLINE FloatVector share(IntegerVector c) {
        return hn::Div(hn::ConvertTo(Floats(), c), hn::Set(Floats(), 255));
    }
    HWY_INLINE PixelMask selectsExactly(IntegerVector pixels) const {
        const HueNumbers<FloatVector> n =
            hueNumbers(share(channel<16>(pixels)), share(channel<8>(pixels)), share(channel<0>(pixels)));
        const DoubleVector one = hn::Set(Doubles(), 1);
        const DoubleVector zero = hn::Zero(Doubles());
        const DoubleVector lower =
            exactExcess({lowerHalf(n.largest), lowerHalf(n.smallest), lowerHalf(n.first), lowerHalf(n.second),
                         lowerHalf(n.offset)});
        const DoubleVector upper =
            exactExcess({upperHalf(n.largest), upperHalf(n.smallest), upperHalf(n.first), upperHalf(n.second),
                         upperHalf(n.offset)});
        const Numbers isNear(hn::IfThenElseZero(hn::Le(lower, zero), one),
                             hn::IfThenElseZero(hn::Le(upper, zero), one));
        return hn::Eq(isNear.rounded(), hn::Set(Integers(), 1));
    }
    /// The exact excess is asked for only where the sign of the rough one may be wrong.
    HWY_INLINE PixelMask selects(IntegerVector pixels, PixelMask isInside) const {
        const Floats d;
        const FloatVector rough = roughExcess(pixels);
        const auto isOpen = hn::RebindMask(Integers(), hn::Le(hn::Abs(rough), hn::Set(d, 0x1p-14F)));
        if (HWY_UNLIKELY(!hn::AllFalse(Integers(), hn::And(isOpen, isInside)))) return selectsExactly(pixels);
        return hn::RebindMask(Integers(), hn::Lt(rough, hn::Zero(d)));
    }
};

std::size_t shiftInSphere(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                          std::int32_t increment) {
    return forVectors(row, count, MoveWork<Shifting>{row, sphere, {increment}});
}

std::size_t replaceBySum(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                         const mHSL::Rgb& target, std::int32_t mostDifference) {
    const mHSL::Rgb& centre = sphere.centre();
    const ReplacingBySum choice{{target}, centre.B + centre.G + centre.R, mostDifference};
    return forVectors(row, count, MoveWork<ReplacingBySum>{row, sphere, choice});
}

std::size_t replaceByHue(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                         const mHSL::Rgb& target, const HueSaturationRange& range) {
    return forVectors(row, count, MoveWork<ReplacingByHue>{row, sphere, {{target}, range}});
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(shiftInSphere);
MOBREL_VECTOR_KERNEL(replaceBySum);
MOBREL_VECTOR_KERNEL(replaceByHue);

}  // namespace mobrel::kernels

#endif
