// SPDX-License-Identifier: MIT
// Vectors of pixels taken apart into planes of 16 bits, and put together again.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

// A component v stands in a plane as 128 v + 16448: with room above and below for what a kernel overshoots
// between two passes, and seven bits behind the point.
inline constexpr int kFractionBits = 7;
inline constexpr int kZero = (65536 - (255 << kFractionBits)) / 2;

// Each does as much as fills vectors and tells how many pixels that is: none where the processor has no
// vectors. The rest is the caller's.

/// A line of blue, green and red, in words of their own.
template <typename Word>
struct PlaneLines {
    Word* blue;
    Word* green;
    Word* red;
};

/// Takes `count` pixels of 4 bytes apart. Byte 3 is not looked at.
extern const VectorKernel<std::size_t(const std::uint8_t* pixels, std::size_t count,
                                      const PlaneLines<std::uint16_t>& planes)>
    deinterleavePixels;

/// Rounds the planes' values, halves upwards, limits them to 0 to 255, and makes pixels of them whose byte 3
/// is 0.
extern const VectorKernel<std::size_t(const PlaneLines<const std::uint16_t>& planes, std::size_t count,
                                      std::uint8_t* pixels)>
    interleavePixels;

}  // namespace mobrel::kernels
