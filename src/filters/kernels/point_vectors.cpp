// SPDX-License-Identifier: MIT
#include "filters/kernels/point_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/point_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// Replaces whole vectors of pixels by what rule(pixels) makes of them; how many pixels these are.
template <class D, class Rule>
HWY_INLINE std::size_t changePixels(D lanes, std::uint8_t* row, std::size_t count, const Rule& rule) {
    return forVectors(row, count,
                      [&](std::size_t at) { store(rule(load(lanes, row + at)), lanes, row + at); });
}

struct Shift {
    ByteVector up;
    ByteVector down;

    HWY_INLINE ByteVector operator()(ByteVector pixels) const {
        return hn::SaturatedSub(hn::SaturatedAdd(pixels, up), down);
    }
};

HWY_INLINE ByteVector eachPixel(std::uint32_t bytes) {
    return hn::BitCast(Bytes(), hn::Set(Pixels(), bytes));
}

std::size_t shiftPixels(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    return changePixels(Bytes(), row, count, Shift{eachPixel(up), eachPixel(down)});
}

struct Invert {
    HWY_INLINE PixelVector operator()(PixelVector pixels) const {
        return hn::Xor(pixels, hn::Set(Pixels(), 0x00FFFFFF));
    }
};

std::size_t invertPixels(std::uint8_t* row, std::size_t count) {
    return changePixels(Pixels(), row, count, Invert());
}

struct Scale {
    double f;

    HWY_INLINE IntegerVector scaled(IntegerVector c) const {
        return limited((Numbers(f) * Numbers(c)).rounded());
    }
    HWY_INLINE IntegerVector operator()(IntegerVector pixels) const {
        return joined(scaled(channel<0>(pixels)), scaled(channel<8>(pixels)), scaled(channel<16>(pixels)),
                      pixels);
    }
};

std::size_t scalePixels(std::uint8_t* row, std::size_t count, double f) {
    return changePixels(Integers(), row, count, Scale{f});
}

struct Saturate {
    double f;

    HWY_INLINE IntegerVector moved(IntegerVector c, IntegerVector grey) const {
        return limited((Numbers(f) * Numbers(hn::Sub(c, grey)) + Numbers(c)).rounded());
    }
    HWY_INLINE IntegerVector operator()(IntegerVector pixels) const {
        // (R + G + B) div 3, for sums up to 765.
        const IntegerVector grey =
            hn::ShiftRight<16>(hn::Mul(sumOfChannels(pixels), hn::Set(Integers(), 21846)));
        return joined(moved(channel<0>(pixels), grey), moved(channel<8>(pixels), grey),
                      moved(channel<16>(pixels), grey), pixels);
    }
};

std::size_t saturatePixels(std::uint8_t* row, std::size_t count, double f) {
    return changePixels(Integers(), row, count, Saturate{f});
}

struct Colorize {
    const std::uint32_t* table;

    HWY_INLINE IntegerVector operator()(IntegerVector pixels) const {
        const auto* const entries = reinterpret_cast<const std::int32_t*>(table);
        return withColours(hn::GatherIndex(Integers(), entries, sumOfChannels(pixels)), pixels);
    }
};

std::size_t colorizePixels(std::uint8_t* row, std::size_t count, const std::uint32_t* table) {
    return changePixels(Integers(), row, count, Colorize{table});
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(shiftPixels);
MOBREL_VECTOR_KERNEL(invertPixels);
MOBREL_VECTOR_KERNEL(scalePixels);
MOBREL_VECTOR_KERNEL(saturatePixels);
MOBREL_VECTOR_KERNEL(colorizePixels);

}  // namespace mobrel::kernels

#endif
