// SPDX-License-Identifier: MIT
#include "filters/kernels/rank_vectors.hpp"

#define HWY_TARGET_INCLUDE "filters/kernels/rank_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/neighbourhood-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

struct Maximum {
    HWY_INLINE ByteVector operator()(const Window& s) const { return s.largestOfPlus(); }
};

bool dilatePixels(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Maximum());
}

struct Minimum {
    HWY_INLINE ByteVector operator()(const Window& s) const {
        return hn::Min(hn::Min(hn::Min(s.above(), s.below()), hn::Min(s.left(), s.right())), s.centre());
    }
};

bool erodePixels(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Minimum());
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(dilatePixels);
MOBREL_VECTOR_KERNEL(erodePixels);

}  // namespace mobrel::kernels

#endif
