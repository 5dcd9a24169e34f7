// SPDX-License-Identifier: MIT
// Kernels that select pixels by colour, in vectors. They take the steps of the plain kernels of select.hpp in
// the same precision. Each begins with the first pixel and tells how many pixels it has done; what is left is
// less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/select.hpp"

namespace mobrel::kernels {

/// shiftRow.
std::size_t shiftedInSphere(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                            std::int32_t increment);

/// Moves pixels of the sphere whose sum of channels differs from the centre's by `mostDifference` at most;
/// below 0 none does.
std::size_t replacedBySum(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                          const mHSL::Rgb& target, std::int32_t mostDifference);

/// Moves pixels of the sphere whose hue and saturation lie in the range.
std::size_t replacedByHue(std::uint8_t* row, std::size_t count, const ColourSphere& sphere,
                          const mHSL::Rgb& target, const HueSaturationRange& range);

}  // namespace mobrel::kernels
