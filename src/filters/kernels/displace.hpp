// SPDX-License-Identifier: MIT
// Inner loops that move pixels, add chance, or lay a grid over the picture.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/RandomSource.hpp"

namespace mobrel::kernels {

/// Where a picture's rows lie: row 0 and the size, rows width x 4 bytes.
struct PictureRows {
    const std::uint8_t* bits;
    int width;
    int height;

    const std::uint8_t* pixel(int x, int y) const { return bits + (std::ptrdiff_t{y} * width + x) * 4; }
};

/// Rows of a picture of this size as they were: row y, as long as it is kept, in slot y mod `kept`.
struct KeptRows {
    const std::uint8_t* bits;
    int width;
    int height;
    int kept;

    /// Where a pixel lies among the kept ones.
    std::int32_t placeOf(int x, int y) const { return y % kept * width + x; }
};

/// Column and row of a pixel, or distances in them.
struct Place {
    std::int32_t x;
    std::int32_t y;
};

/// Every step-th pixel of row y takes the colour of a random pixel at most range.x columns and range.y
/// rows away, held inside the picture. Two random numbers a pixel, column first.
void diffuseRow(const KeptRows& from, int y, std::uint8_t* to, Place range, std::int32_t step,
                RandomSource& random);

/// Adds one random amount from -level to level to the three channels of every step-th pixel, limited to
/// a byte. One random number a pixel. Error 6 when the amount does not fit 32 bits.
void noiseRow(std::uint8_t* row, int width, std::int32_t level, std::int32_t step, RandomSource& random);

/// The means of the blocks of `size` columns over rows [first, end): one pixel a block, the last block
/// as wide as the picture leaves it. Sums wrap at 32 bits; error 6 when a mean is no byte then.
void blockMeans(const PictureRows& from, int first, int end, std::int32_t size,
                std::vector<std::uint8_t>& means);

/// Writes each block's mean over its columns of a row.
void blockRow(const std::vector<std::uint8_t>& means, std::uint8_t* to, int width, std::int32_t size);

}  // namespace mobrel::kernels
