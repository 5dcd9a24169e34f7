// SPDX-License-Identifier: MIT
// Despeckling of several samples at once. Each function does the first pixels of what it is given, tells
// how many, and leaves the rest to the plain loops; byte 3 of a pixel stays.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/rank.hpp"

namespace mobrel::kernels {

/// As despeckleRow.
std::size_t despeckleVectors(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                             std::size_t count);

/// As despeckleMoreRow.
std::size_t despeckleMoreVectors(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                                 std::size_t count);

/// As despeckleAlong: the first columns of every row.
std::size_t despeckleColumns(const PixelBlock& block);

/// As despeckleMoreAlong: the first columns of every row.
std::size_t despeckleMoreColumns(const PixelBlock& block);

}  // namespace mobrel::kernels
