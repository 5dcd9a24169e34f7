// SPDX-License-Identifier: MIT
// Inner loops that compare a pixel with a few neighbours.
#pragma once

#include <cstdint>

namespace mobrel::kernels {

/// Moves the samples of `count` pixels, in place and from left to right, towards their neighbours a
/// and b: four tests in order, one step each. a and b may lie in the row itself, and then see what the
/// pixels before have become.
void despeckleRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, int count);

}  // namespace mobrel::kernels
