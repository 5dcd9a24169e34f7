// SPDX-License-Identifier: MIT
#include "filters/kernels/texture_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/texture_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

struct TextureWork {
    std::uint8_t* row;
    const std::uint8_t* texture;

    /// (c t + 128 (t - 128)) / 128, halves to the even number.
    static HWY_INLINE IntegerVector laid(IntegerVector c, IntegerVector t) {
        const Integers d;
        const IntegerVector n = hn::Add(hn::Mul(c, t), hn::ShiftLeft<7>(hn::Sub(t, hn::Set(d, 128))));
        const IntegerVector isOdd = hn::And(hn::ShiftRight<7>(n), hn::Set(d, 1));
        return limited(hn::ShiftRight<7>(hn::Add(hn::Add(n, hn::Set(d, 63)), isOdd)));
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(Integers(), row + at);
        const IntegerVector t = channel<0>(load(Integers(), texture + at));
        store(joined(laid(channel<0>(pixels), t), laid(channel<8>(pixels), t), laid(channel<16>(pixels), t),
                     pixels),
              Integers(), row + at);
    }
};

std::size_t texturizePixels(std::uint8_t* row, std::size_t count, const std::uint8_t* texture) {
    return forVectors(row, count, TextureWork{row, texture});
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(texturizePixels);

}  // namespace mobrel::kernels

#endif
