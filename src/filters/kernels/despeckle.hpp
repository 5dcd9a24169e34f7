// SPDX-License-Identifier: MIT
// Despeckle and DespeckleMore: samples that stand out from two neighbours.
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

}  // namespace mobrel::kernels
