// SPDX-License-Identifier: MIT
// Rows of greys in vectors. What writes works from the first pixel and tells how far it came.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel {

/// Sets pixels to their weighted grey, as long as no sum of weights lies on a rounding tie, which the order
/// of the sum decides. How many are done: it stops before a vector with a tie, and where less than a vector
/// is left.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count)> greyUntilTie;

/// Adds the plain greys of pixels to a sum. How many are done; what is left is less than a vector.
extern const VectorKernel<std::size_t(const std::uint8_t* row, std::size_t count, std::int64_t& sum)>
    addPlainGreys;

/// The sum of the plain greys of all `count` pixels.
std::int64_t sumOfPlainGreys(const std::uint8_t* row, std::size_t count);

/// Takes byte 0 of each pixel. How many are done; what is left is less than a vector.
extern const VectorKernel<std::size_t(const std::uint8_t* row, std::size_t count, std::uint8_t* bytes)>
    takeFirstBytes;

}  // namespace mobrel
