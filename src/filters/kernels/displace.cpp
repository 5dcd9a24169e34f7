// SPDX-License-Identifier: MIT
#include "filters/kernels/displace.hpp"

#include <algorithm>
#include <cstring>

#include "filters/kernels/forSteps.hpp"
#include "platform/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// A random place about `centre`, held inside 0 to last.
std::int32_t scattered(float random, std::int32_t centre, std::int32_t range, std::int32_t last) {
    const std::int32_t place = roundInt(static_cast<double>(random) * wrapMul(range, 2) + centre - range);
    return place < 1 ? 0 : std::min(place, last);
}

void copyColour(const std::uint8_t* from, std::uint8_t* to) {
    std::memcpy(to, from, 3);
}

}  // namespace

void diffuseRow(const PictureRows& from, int y, std::uint8_t* to, std::int32_t xRange, std::int32_t yRange,
                std::int32_t step, RandomSource& random) {
    forSteps(0, from.width - 1, step, [&](std::int32_t x) {
        const std::int32_t xx = scattered(random.next(), x, xRange, from.width - 1);
        const std::int32_t yy = scattered(random.next(), y, yRange, from.height - 1);
        copyColour(from.pixel(xx, yy), to + std::ptrdiff_t{x} * 4);
    });
}

void noiseRow(std::uint8_t* row, int width, std::int32_t level, std::int32_t step, RandomSource& random) {
    const double range = wrapMul(level, 2);
    forSteps(0, width - 1, step, [&](std::int32_t x) {
        const std::int32_t amount = roundInt(random.next() * range - level);
        std::uint8_t* pixel = row + std::ptrdiff_t{x} * 4;
        for (int channel = 0; channel < 3; ++channel) {
            pixel[channel] = clampByte(wrapAdd(pixel[channel], amount));
        }
    });
}

void blockMeans(const PictureRows& from, int first, int end, std::int32_t size,
                std::vector<std::uint8_t>& means) {
    means.clear();
    if (size < 0) {  // kept: such a block holds no pixel, and its mean stays black
        means.assign(4, 0);
        return;
    }
    for (int left = 0; left < from.width;) {
        const int right = static_cast<int>(std::min<std::int64_t>(std::int64_t{left} + size, from.width));
        std::uint32_t sums[3] = {0, 0, 0};
        for (int y = first; y < end; ++y) {
            const std::uint8_t* pixel = from.pixel(left, y);
            for (int x = left; x < right; ++x, pixel += 4) {
                for (int channel = 0; channel < 3; ++channel) sums[channel] += pixel[channel];
            }
        }
        const std::int32_t count = (right - left) * (end - first);
        for (const std::uint32_t sum : sums)
            means.push_back(toByte(div(static_cast<std::int32_t>(sum), count)));
        means.push_back(0);
        left = right;
    }
}

void blockRow(const std::vector<std::uint8_t>& means, std::uint8_t* to, int width, std::int32_t size) {
    const std::uint8_t* mean = means.data();
    int inBlock = 0;
    for (int x = 0; x < width; ++x, to += 4) {
        copyColour(mean, to);
        if (++inBlock == size) {
            inBlock = 0;
            mean += 4;
        }
    }
}

}  // namespace mobrel::kernels
