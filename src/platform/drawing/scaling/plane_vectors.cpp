// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "platform/drawing/scaling/plane_vectors.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/drawing/scaling/plane_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t Unpack(const std::uint8_t*, std::size_t, const PlaneLines<std::uint16_t>&) {
    return 0;
}
std::size_t Repack(const PlaneLines<const std::uint16_t>&, std::size_t, std::uint8_t*) {
    return 0;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

/// Two of them are a pixel: blue below green, red below byte 3.
using Words = hn::ScalableTag<std::uint16_t>;
using WordVector = hn::Vec<Words>;

HWY_INLINE WordVector lowByte(WordVector v) {
    return hn::And(v, hn::Set(Words(), 0xFF));
}
HWY_INLINE WordVector toFixed(WordVector component) {
    return hn::Add(hn::ShiftLeft<kFractionBits>(component), hn::Set(Words(), kZero));
}

std::size_t Unpack(const std::uint8_t* pixels, std::size_t count, const PlaneLines<std::uint16_t>& planes) {
    const Words d;
    const hn::Repartition<std::uint8_t, Words> bytes;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(pixels + done * 4);
        const auto first = hn::BitCast(d, hn::LoadU(bytes, pixels + done * 4));
        const auto second = hn::BitCast(d, hn::LoadU(bytes, pixels + done * 4 + step * 2));
        const WordVector blueGreen = hn::ConcatEven(d, second, first);
        const WordVector red = hn::ConcatOdd(d, second, first);
        hn::StoreU(toFixed(lowByte(blueGreen)), d, planes.blue + done);
        hn::StoreU(toFixed(hn::ShiftRight<8>(blueGreen)), d, planes.green + done);
        hn::StoreU(toFixed(lowByte(red)), d, planes.red + done);
    }
    return done;
}

/// What lies below zero is cut before the fraction is, so that no sign is needed.
HWY_INLINE WordVector fromFixed(const std::uint16_t* plane) {
    constexpr int kHalf = 1 << (kFractionBits - 1);
    const WordVector shifted = hn::SaturatedSub(hn::LoadU(Words(), plane), hn::Set(Words(), kZero - kHalf));
    return hn::Min(hn::ShiftRight<kFractionBits>(shifted), hn::Set(Words(), 255));
}

std::size_t Repack(const PlaneLines<const std::uint16_t>& planes, std::size_t count, std::uint8_t* pixels) {
    const Words d;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        const WordVector blueGreen =
            hn::Or(fromFixed(planes.blue + done), hn::ShiftLeft<8>(fromFixed(planes.green + done)));
        hn::StoreInterleaved2(blueGreen, fromFixed(planes.red + done), d,
                              reinterpret_cast<std::uint16_t*>(pixels + done * 4));
    }
    return done;
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(Unpack);
MOBREL_VECTORS(Repack);

std::size_t unpackedPixels(const std::uint8_t* pixels, std::size_t count,
                           const PlaneLines<std::uint16_t>& planes) {
    return MOBREL_BEST(Unpack)(pixels, count, planes);
}

std::size_t repackedPixels(const PlaneLines<const std::uint16_t>& planes, std::size_t count,
                           std::uint8_t* pixels) {
    return MOBREL_BEST(Repack)(planes, count, pixels);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
