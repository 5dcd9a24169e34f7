// SPDX-License-Identifier: MIT
// Edges in vectors.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// contourRow. False, with nothing written, where the row is too short for a vector.
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width)> contourPixels;

/// outlineRow, for `count` pixels from column 1 and numbers up to kMostFactor. How many pixels are done; what
/// is left is less than a vector.
extern const VectorKernel<std::size_t(const Rows3& from, std::uint8_t* to, std::size_t count, double k,
                                      double shift)>
    outlinePixels;

}  // namespace mobrel::kernels
