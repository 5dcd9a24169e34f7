// SPDX-License-Identifier: MIT
#include "filters/kernels/convolution_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/convolution_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/neighbourhood-inl.hpp"
#include "filters/kernels/number_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

HWY_INLINE WordPair besideSum(const Window& s) {
    WordPair sum(s.below());
    sum.add(s.above());
    sum.add(s.right());
    sum.add(s.left());
    return sum;
}

HWY_INLINE WordPair aroundSum(const Window& s) {
    WordPair sum = besideSum(s);
    sum.add(s.belowLeft());
    sum.add(s.belowRight());
    sum.add(s.aboveLeft());
    sum.add(s.aboveRight());
    return sum;
}

/// Quotients of numbers below 2^15.
struct Divide {
    WordVector factor;
    int shift;
    HWY_INLINE explicit Divide(const WordDivisor& by)
        : factor(hn::Set(Words(), by.factor)), shift(by.shift) {}
    HWY_INLINE WordVector operator()(WordVector n) const {
        return hn::ShiftRightSame(hn::MulHigh(n, factor), shift);
    }
};

template <WordPair (*Sum)(const Window&)>
struct Mean {
    WordVector weight;
    Divide divide;

    HWY_INLINE explicit Mean(const WeightedMean& mean)
        : weight(hn::Set(Words(), mean.weight)), divide(mean.divisor) {}
    HWY_INLINE ByteVector operator()(const Window& s) const {
        const WordPair sum = Sum(s);
        const WordPair c(s.centre());
        return WordPair(divide(hn::Add(sum.even, hn::Mul(weight, c.even))),
                        divide(hn::Add(sum.odd, hn::Mul(weight, c.odd))))
            .bytes();
    }
};

struct Sharpen {
    WordVector weight;
    Divide divide;

    HWY_INLINE explicit Sharpen(const WeightedMean& mean)
        : weight(hn::Set(Words(), mean.weight)), divide(mean.divisor) {}
    HWY_INLINE WordVector limited(WordVector c, WordVector around) const {
        const WordVector n = hn::SaturatedSub(hn::Mul(weight, c), around);
        return hn::Min(divide(n), hn::Set(Words(), 255));
    }
    HWY_INLINE ByteVector operator()(const Window& s) const {
        const WordPair around = aroundSum(s);
        const WordPair c(s.centre());
        return WordPair(limited(c.even, around.even), limited(c.odd, around.odd)).bytes();
    }
};

bool blurPixels(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width, Mean<aroundSum>(mean));
}

bool softenPixels(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width, Mean<besideSum>(mean));
}

bool sharpenPixels(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width, Sharpen(mean));
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(blurPixels);
MOBREL_VECTOR_KERNEL(softenPixels);
MOBREL_VECTOR_KERNEL(sharpenPixels);

}  // namespace mobrel::kernels

#endif
