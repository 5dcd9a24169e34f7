// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "filters/kernels/point_vectors.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/point_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t Shift(std::uint8_t*, std::size_t, std::uint32_t, std::uint32_t) {
    return 0;
}
std::size_t Invert(std::uint8_t*, std::size_t) {
    return 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Pixels = hn::RepartitionToWide<hn::RepartitionToWide<Bytes> >;

/// Calls work(pixels) with whole vectors and puts back what it returns.
template <typename Work>
HWY_INLINE std::size_t changeVectors(std::uint8_t* row, std::size_t count, Work work) {
    const std::size_t step = hn::Lanes(Pixels());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        std::uint8_t* const at = row + done * 4;
        loadAhead(at);
        hn::StoreU(work(hn::LoadU(Bytes(), at)), Bytes(), at);
    }
    return done;
}

using ByteVector = hn::Vec<Bytes>;

struct ShiftWork {
    ByteVector up;
    ByteVector down;
    HWY_INLINE ByteVector operator()(ByteVector pixels) const {
        return hn::SaturatedSub(hn::SaturatedAdd(pixels, up), down);
    }
};

struct InvertWork {
    ByteVector colours;
    HWY_INLINE ByteVector operator()(ByteVector pixels) const { return hn::Xor(pixels, colours); }
};

HWY_INLINE ByteVector eachPixel(std::uint32_t bytes) {
    return hn::BitCast(Bytes(), hn::Set(Pixels(), bytes));
}

std::size_t Shift(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    return changeVectors(row, count, ShiftWork{eachPixel(up), eachPixel(down)});
}
std::size_t Invert(std::uint8_t* row, std::size_t count) {
    return changeVectors(row, count, InvertWork{eachPixel(0x00FFFFFF)});
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(Shift);
MOBREL_VECTORS(Invert);

std::size_t shiftedPixels(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down) {
    return MOBREL_BEST(Shift)(row, count, up, down);
}

std::size_t invertedPixels(std::uint8_t* row, std::size_t count) {
    return MOBREL_BEST(Invert)(row, count);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
