// SPDX-License-Identifier: MIT
// Random amounts and places in vectors. `bits` holds random numbers, each as its 24 bits. Each kernel does a
// row from its first pixel and tells how many pixels it has done; what is left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/diffuse_noise.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// Whether Round(2 range random - range), a distance of at most the range, can be made in whole numbers of
/// 32 bits.
constexpr bool isNarrow(std::int32_t range) {
    return range >= -255 && range <= 255;
}

/// noiseRow with step 1, for a narrow level. One number a pixel.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, std::int32_t level,
                                      const std::uint32_t* bits)>
    addNoise;

/// Where diffuseRow with step 1 and narrow ranges finds the colours of the pixels from `at`: places in the
/// kept pixels. Two numbers a pixel.
extern const VectorKernel<std::size_t(const KeptRows& from, Place at, Place range, std::size_t count,
                                      const std::uint32_t* bits, std::int32_t* found)>
    scatterPlaces;

}  // namespace mobrel::kernels
