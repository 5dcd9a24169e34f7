// SPDX-License-Identifier: MIT
#include "filters/kernels/edges_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/edges_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/neighbourhood-inl.hpp"
#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

struct Contour {
    HWY_INLINE ByteVector operator()(const Window& s) const {
        return hn::Not(hn::Sub(s.largest(), s.centre()));
    }
};

bool contourPixels(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Contour());
}

struct OutlineWork {
    const Rows3& rows;
    std::uint8_t* to;
    double k;
    double shift;

    template <int kShift>
    HWY_INLINE IntegerVector drawn(const Window& s, IntegerVector largest) const {
        const IntegerVector centre = samples<kShift>(s.centre());
        const IntegerVector beside = hn::Add(hn::Add(samples<kShift>(s.below()), samples<kShift>(s.above())),
                                             hn::Add(samples<kShift>(s.left()), samples<kShift>(s.right())));
        // n div 5 for n up to 1,275.
        const IntegerVector mean =
            hn::ShiftRight<16>(hn::Mul(hn::Add(beside, centre), hn::Set(Integers(), 13108)));
        const IntegerVector edge = hn::Sub(channel<kShift>(largest), centre);
        return limited((Numbers(mean) - Numbers(k) * Numbers(edge) + Numbers(shift)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const Window s{rows, at + 4};
        const IntegerVector largest = hn::BitCast(Integers(), s.largest());
        const IntegerVector pixels = hn::BitCast(Integers(), s.centre());
        store(joined(drawn<0>(s, largest), drawn<8>(s, largest), drawn<16>(s, largest), pixels), Integers(),
              to + at + 4);
    }
};

std::size_t outlinePixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double shift) {
    return forVectors(from.above, count, OutlineWork{from, to, k, shift});
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(contourPixels);
MOBREL_VECTOR_KERNEL(outlinePixels);

}  // namespace mobrel::kernels

#endif
