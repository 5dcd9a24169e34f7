// SPDX-License-Identifier: MIT
// Inner loops that compare a pixel with a few neighbours.
#pragma once

#include <cstdint>

namespace mobrel::kernels {

/// Moves the samples of `count` pixels, in place and from left to right, towards their neighbours a
/// and b: four tests in order, one step each. a and b may lie in the row itself, and then see what the
/// pixels before have become.
void despeckleRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, int count);

/// The same with eight tests, which also move a sample that stands out by one from both neighbours.
void despeckleMoreRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, int count);

/// Tests the 2 x 2 blocks at columns 1 to width - 3 of four rows (y - 1 to y + 2) against the mean of
/// the 12 pixels around each, from left to right and in place. A pixel of which a channel differs from
/// the mean by more than the threshold becomes the mean.
void saltAndPepperRow(std::uint8_t* const rows[4], int width, std::int32_t threshold);

}  // namespace mobrel::kernels
