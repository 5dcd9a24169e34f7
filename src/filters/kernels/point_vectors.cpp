// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "filters/kernels/point_vectors.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/point_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t Shift(std::uint8_t*, std::size_t, std::uint32_t, std::uint32_t) {
    return 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Pixels = hn::RepartitionToWide<hn::RepartitionToWide<Bytes> >;
using Integers = hn::RebindToSigned<Pixels>;
using PixelVector = hn::Vec<Pixels>;

HWY_INLINE PixelVector channel(PixelVector pixels, int shift) {
    return hn::And(hn::ShiftRightSame(pixels, shift), hn::Set(Pixels(), 0xFF));
}

std::size_t Shift(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    const Bytes d;
    const auto increase = hn::BitCast(d, hn::Set(Pixels(), up));
    const auto decrease = hn::BitCast(d, hn::Set(Pixels(), down));
    const std::size_t step = hn::Lanes(Pixels());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        std::uint8_t* const at = row + done * 4;
        hn::StoreU(hn::SaturatedSub(hn::SaturatedAdd(hn::LoadU(d, at), increase), decrease), d, at);
    }
    return done;
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(Shift);

std::size_t shiftedPixels(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    return MOBREL_BEST(Shift)(row, count, up, down);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
