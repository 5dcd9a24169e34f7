// SPDX-License-Identifier: MIT
// Inner loops that compare a pixel with a few neighbours.
#pragma once

#include <cstddef>
#include <cstdint>

namespace mobrel::kernels {

/// Moves the samples of `count` pixels towards their neighbours a and b, which lie in other rows: four
/// tests in order, one step each.
void despeckleRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, std::size_t count);

/// The same with eight tests, which also move a sample that stands out by one from both neighbours.
void despeckleMoreRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, std::size_t count);

/// Pixels of a few rows, with one more on the left and one on the right of each row.
struct PixelBlock {
    std::uint8_t* first;
    std::size_t rowBytes;
    std::size_t rows;
    std::size_t columns;

    std::uint8_t* row(std::size_t i) const { return first + i * rowBytes; }
};

/// As despeckleRow with the neighbours on the left and on the right: the one on the left has moved
/// already.
void despeckleAlong(const PixelBlock& block);

/// As despeckleMoreRow with the neighbours on the left and on the right.
void despeckleMoreAlong(const PixelBlock& block);

/// Tests the 2 x 2 blocks at columns 1 to width - 3 of four rows (y - 1 to y + 2) against the mean of
/// the 12 pixels around each, from left to right and in place. A pixel of which a channel differs from
/// the mean by more than the threshold becomes the mean.
void saltAndPepperRow(std::uint8_t* const rows[4], int width, std::int32_t threshold);

}  // namespace mobrel::kernels
