// SPDX-License-Identifier: MIT
#include "platform/drawing/scaling/plane_vectors.hpp"

#define HWY_TARGET_INCLUDE "platform/drawing/scaling/plane_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// Two words are a pixel: blue below green, red below byte 3.
HWY_INLINE WordVector lowByte(WordVector v) {
    return hn::And(v, hn::Set(Words(), 0xFF));
}
HWY_INLINE WordVector toFixed(WordVector component) {
    return hn::Add(hn::ShiftLeft<kFractionBits>(component), hn::Set(Words(), kZero));
}

std::size_t deinterleavePixels(const std::uint8_t* pixels, std::size_t count,
                               const PlaneLines<std::uint16_t>& planes) {
    const Words d;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(pixels + done * 4);
        const WordVector first = load(d, pixels + done * 4);
        const WordVector second = load(d, pixels + done * 4 + step * 2);
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

std::size_t interleavePixels(const PlaneLines<const std::uint16_t>& planes, std::size_t count,
                             std::uint8_t* pixels) {
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

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(deinterleavePixels);
MOBREL_VECTOR_KERNEL(interleavePixels);

}  // namespace mobrel::kernels

#endif
