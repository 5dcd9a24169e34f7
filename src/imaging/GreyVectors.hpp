// SPDX-License-Identifier: MIT
// Rows of greys in vectors. What writes works from the first pixel and tells how far it came.
#pragma once

#include <cstddef>
#include <cstdint>

namespace mobrel {

/// Sets pixels to their weighted grey, as long as no sum of weights lies on a rounding tie, which the order
/// of the sum decides. How many are done: it stops before a vector with a tie, and where less than a vector
/// is left.
std::size_t greysWithoutTies(std::uint8_t* row, std::size_t count);

/// The sum of the plain greys of all `count` pixels.
std::int64_t sumOfPlainGreys(const std::uint8_t* row, std::size_t count);

/// Takes byte 0 of each pixel. How many are done; what is left is less than a vector.
std::size_t firstBytes(const std::uint8_t* row, std::size_t count, std::uint8_t* bytes);

}  // namespace mobrel
