// SPDX-License-Identifier: MIT
// Relief in vectors. Each kernel begins with the first pixel and tells how many pixels it has done; what is
// left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// embossRow, for pixels that have a neighbour, and f up to kMostFactor: pixel i of `neighbours` is that of
/// pixel i.
extern const VectorKernel<std::size_t(const std::uint8_t* from, const std::uint8_t* neighbours,
                                      std::uint8_t* to, std::size_t count, double f)>
    embossPixels;

/// relieveRow by multiplication with `inverse`, for `count` pixels from column 1.
extern const VectorKernel<std::size_t(const Rows3& from, std::uint8_t* to, std::size_t count, double k,
                                      double inverse)>
    relievePixels;

}  // namespace mobrel::kernels
