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

std::size_t Greys(std::uint8_t*, std::size_t) {
    return 0;
}
std::size_t Shift(std::uint8_t*, std::size_t, std::uint32_t, std::uint32_t) {
    return 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Pixels = hn::RepartitionToWide<hn::RepartitionToWide<Bytes> >;
using Integers = hn::RebindToSigned<Pixels>;
using Floats = hn::RebindToFloat<Pixels>;
using PixelVector = hn::Vec<Pixels>;

HWY_INLINE PixelVector channel(PixelVector pixels, int shift) {
    return hn::And(hn::ShiftRightSame(pixels, shift), hn::Set(Pixels(), 0xFF));
}

/// The weighted greys in thousandths, from 0 to 255,000.
HWY_INLINE PixelVector thousandths(PixelVector pixels) {
    const Pixels d;
    return hn::Add(
        hn::Add(hn::Mul(channel(pixels, 8), hn::Set(d, 707)), hn::Mul(channel(pixels, 0), hn::Set(d, 71))),
        hn::Mul(channel(pixels, 16), hn::Set(d, 222)));
}

/// n div 1000 for n below 2^18: the product with the float nearest to 0.001 is never below a whole quotient
/// and never reaches the next one.
HWY_INLINE PixelVector thousandth(PixelVector n) {
    const auto quotient =
        hn::Mul(hn::ConvertTo(Floats(), hn::BitCast(Integers(), n)), hn::Set(Floats(), 0.001F));
    return hn::BitCast(Pixels(), hn::ConvertTo(Integers(), quotient));
}

std::size_t Greys(std::uint8_t* row, std::size_t count) {
    const Pixels d;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        auto* const at = reinterpret_cast<std::uint32_t*>(row) + done;
        const PixelVector pixels = hn::LoadU(d, at);
        const PixelVector n = hn::Add(thousandths(pixels), hn::Set(d, 500));
        const PixelVector grey = thousandth(n);
        const auto isTie = hn::Eq(hn::Mul(grey, hn::Set(d, 1000)), n);
        if (HWY_UNLIKELY(!hn::AllFalse(d, isTie))) return done;
        const PixelVector kept = hn::And(pixels, hn::Set(d, 0xFF000000U));
        hn::StoreU(hn::Or(hn::Mul(grey, hn::Set(d, 0x010101)), kept), d, at);
    }
    return done;
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

MOBREL_VECTORS(Greys);
MOBREL_VECTORS(Shift);

std::size_t greysWithoutTies(std::uint8_t* row, std::size_t count) {
    return MOBREL_BEST(Greys)(row, count);
}

std::size_t shiftedPixels(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    return MOBREL_BEST(Shift)(row, count, up, down);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
