// SPDX-License-Identifier: MIT
#include "filters/kernels/salt_and_pepper.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

#include "filters/kernels/salt_and_pepper_vectors.hpp"

namespace mobrel::kernels {

namespace {

struct Mean {
    int b, g, r;

    bool differs(const std::uint8_t* pixel, std::int32_t threshold) const {
        return std::abs(pixel[0] - b) > threshold || std::abs(pixel[1] - g) > threshold ||
               std::abs(pixel[2] - r) > threshold;
    }
};

/// The mean of the 12 pixels around the block at column x.
Mean ringMean(std::uint8_t* const rows[4], int x) {
    const auto sum = [&](int channel) {
        int total = 0;
        for (int column = x - 1; column <= x + 2; ++column) {
            const int at = column * 4 + channel;
            total += rows[0][at] + rows[3][at];
            if (column == x - 1 || column == x + 2) total += rows[1][at] + rows[2][at];
        }
        return total / 12;
    };
    return {sum(0), sum(1), sum(2)};
}

/// Whether a pixel of the block became the mean.
bool cleanBlock(std::uint8_t* const rows[4], int x, std::int32_t threshold) {
    const Mean mean = ringMean(rows, x);
    bool isChanged = false;
    for (int dy = 0; dy <= 1; ++dy) {
        for (int dx = 0; dx <= 1; ++dx) {
            std::uint8_t* pixel = rows[1 + dy] + std::ptrdiff_t{x + dx} * 4;
            if (!mean.differs(pixel, threshold)) continue;
            pixel[0] = static_cast<std::uint8_t>(mean.b);
            pixel[1] = static_cast<std::uint8_t>(mean.g);
            pixel[2] = static_cast<std::uint8_t>(mean.r);
            isChanged = true;
        }
    }
    return isChanged;
}

}  // namespace

void saltAndPepperRow(std::uint8_t* const rows[4], int width, std::int32_t threshold) {
    constexpr int kPlainBlocks = 4;  // where one block changes, those after it often do
    const int end = width - 2;
    for (int x = 1; x < end;) {
        x += static_cast<int>(
            blocksThatStay(rows, static_cast<std::size_t>(x), static_cast<std::size_t>(end - x), threshold));
        for (int stop = std::min(x + kPlainBlocks, end); x < stop; ++x) {
            if (cleanBlock(rows, x, threshold)) stop = std::min(x + 1 + kPlainBlocks, end);
        }
    }
}

}  // namespace mobrel::kernels
