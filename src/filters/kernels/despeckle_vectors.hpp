// SPDX-License-Identifier: MIT
// Despeckling of several samples at once. Each kernel does the first pixels of what it is given, tells how
// many, and leaves the rest to the plain loops; byte 3 of a pixel stays.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/despeckle.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// despeckleRow.
extern const VectorKernel<std::size_t(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                                      std::size_t count)>
    despecklePixels;

/// despeckleMoreRow.
extern const VectorKernel<std::size_t(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                                      std::size_t count)>
    despeckleMorePixels;

/// despeckleAlong, for the first columns of every row.
extern const VectorKernel<std::size_t(const PixelBlock& block)> despeckleColumns;

/// despeckleMoreAlong, for the first columns of every row.
extern const VectorKernel<std::size_t(const PixelBlock& block)> despeckleMoreColumns;

}  // namespace mobrel::kernels
