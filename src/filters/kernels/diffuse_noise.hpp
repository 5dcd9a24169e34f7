// SPDX-License-Identifier: MIT
// Diffuse and Noise: pixels moved and changed by chance.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/RandomSource.hpp"

namespace mobrel::kernels {

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

}  // namespace mobrel::kernels
