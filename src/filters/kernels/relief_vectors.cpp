// SPDX-License-Identifier: MIT
#include "filters/kernels/relief_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/relief_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/neighbourhood-inl.hpp"
#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

struct EmbossWork {
    const std::uint8_t* from;
    const std::uint8_t* neighbours;
    std::uint8_t* to;
    double f;

    HWY_INLINE IntegerVector raised(IntegerVector c, IntegerVector neighbour) const {
        return limited(magnitude(Numbers(f) * Numbers(hn::Sub(c, neighbour)) + Numbers(128.0)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(Integers(), from + at);
        const IntegerVector beside = load(Integers(), neighbours + at);
        store(joined(raised(channel<0>(pixels), channel<0>(beside)),
                     raised(channel<8>(pixels), channel<8>(beside)),
                     raised(channel<16>(pixels), channel<16>(beside)), load(Integers(), to + at)),
              Integers(), to + at);
    }
};

std::size_t embossPixels(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to,
                         std::size_t count, double f) {
    return forVectors(neighbours, count, EmbossWork{from, neighbours, to, f});
}

struct ReliefWork {
    const Rows3& rows;
    std::uint8_t* to;
    double k;
    double inverse;

    template <int kShift>
    HWY_INLINE IntegerVector raised(const Window& s) const {
        const IntegerVector lit = hn::Add(
            hn::Add(samples<kShift>(s.belowRight()), samples<kShift>(s.right())), samples<kShift>(s.below()));
        const IntegerVector shaded = hn::Add(
            hn::Add(samples<kShift>(s.aboveLeft()), samples<kShift>(s.above())), samples<kShift>(s.left()));
        const IntegerVector centre = (Numbers(samples<kShift>(s.centre())) * Numbers(k)).rounded();
        return limited((Numbers(hn::Add(centre, hn::Sub(lit, shaded))) * Numbers(inverse)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const Window s{rows, at + 4};
        const IntegerVector pixels = hn::BitCast(Integers(), s.centre());
        store(joined(raised<0>(s), raised<8>(s), raised<16>(s), pixels), Integers(), to + at + 4);
    }
};

std::size_t relievePixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double inverse) {
    return forVectors(from.above, count, ReliefWork{from, to, k, inverse});
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(embossPixels);
MOBREL_VECTOR_KERNEL(relievePixels);

}  // namespace mobrel::kernels

#endif
