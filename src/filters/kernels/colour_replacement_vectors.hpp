// SPDX-License-Identifier: MIT
// Replacement of colours in vectors, by the steps of the plain loops in the same precision. Each kernel
// begins with the first pixel and tells how many pixels it has done; what is left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/colour_replacement.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// shiftRow.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                                      std::int32_t increment)>
    shiftInSphere;

/// Moves pixels of the sphere whose sum of channels differs from the centre's by `mostDifference` at most;
/// below 0 none does.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                                      const mHSL::Rgb& target, std::int32_t mostDifference)>
    replaceBySum;

/// Moves pixels of the sphere whose hue and saturation lie in the range.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                                      const mHSL::Rgb& target, const HueSaturationRange& range)>
    replaceByHue;

}  // namespace mobrel::kernels
