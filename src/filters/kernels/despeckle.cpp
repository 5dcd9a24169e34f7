// SPDX-License-Identifier: MIT
#include "filters/kernels/despeckle.hpp"

#include "filters/kernels/despeckle_vectors.hpp"

namespace mobrel::kernels {

namespace {

// A neighbour below p implies p > 0, and one above p implies p < 255, so no sample leaves the byte.
int despeckled(int p, int a, int b) {
    p -= a < p - 1;
    p -= b < p - 1;
    p += a > p + 1;
    p += b > p + 1;
    return p;
}

int despeckledMore(int p, int a, int b) {
    p -= a < p - 1;
    p -= a < p && b <= p;
    p -= b < p && a <= p;
    p -= b < p - 1;
    p += a > p + 1;
    p += a > p && b >= p;
    p += b > p && a >= p;
    p += b > p + 1;
    return p;
}

template <typename Rule>
void moveSamples(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, std::size_t count,
                 Rule rule) {
    for (std::size_t i = 0; i < count * 4; i += 4) {
        for (std::size_t channel = i; channel < i + 3; ++channel) {
            row[channel] = static_cast<std::uint8_t>(rule(row[channel], a[channel], b[channel]));
        }
    }
}

template <typename Rule>
void moveAlong(const PixelBlock& block, std::size_t column, Rule rule) {
    for (std::size_t i = 0; i < block.rows; ++i) {
        std::uint8_t* row = block.row(i) + column * 4;
        moveSamples(row, row - 4, row + 4, block.columns - column, rule);
    }
}

}  // namespace

void despeckleRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, std::size_t count) {
    const std::size_t done = despecklePixels(row, a, b, count);
    moveSamples(row + done * 4, a + done * 4, b + done * 4, count - done, despeckled);
}

void despeckleMoreRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b, std::size_t count) {
    const std::size_t done = despeckleMorePixels(row, a, b, count);
    moveSamples(row + done * 4, a + done * 4, b + done * 4, count - done, despeckledMore);
}

void despeckleAlong(const PixelBlock& block) {
    moveAlong(block, despeckleColumns(block), despeckled);
}

void despeckleMoreAlong(const PixelBlock& block) {
    moveAlong(block, despeckleMoreColumns(block), despeckledMore);
}

}  // namespace mobrel::kernels
