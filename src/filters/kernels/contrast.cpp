// SPDX-License-Identifier: MIT
#include "filters/kernels/contrast.hpp"

#include <algorithm>
#include <cmath>

#include "imaging/WeightedGrey.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// Channels of one pixel on their way back into the range of a byte.
struct Channels {
    std::int32_t b;
    std::int32_t g;
    std::int32_t r;
};

bool isByte(std::int32_t value) {
    return static_cast<std::uint32_t>(value) <= 255;
}

/// Brings `clipped` into range and moves half of its excess to each of the others.
void resolveChannel(std::int32_t& clipped, std::int32_t& second, std::int32_t& third) {
    if (isByte(clipped)) return;
    const std::int32_t limit = clipped < 0 ? 0 : 255;
    const std::int32_t half = div(wrapSub(clipped, limit), 2);
    second = wrapAdd(second, half);
    third = wrapAdd(third, half);
    clipped = limit;
}

/// kept: blue, green, red in this order on running values, and halves that truncate toward zero.
void resolveClipping(Channels& c) {
    while (!(isByte(c.b) && isByte(c.g) && isByte(c.r))) {
        if (c.b <= 0 && c.g <= 0 && c.r <= 0) c = {0, 0, 0};
        if (c.b >= 255 && c.g >= 255 && c.r >= 255) c = {255, 255, 255};
        resolveChannel(c.b, c.g, c.r);
        resolveChannel(c.g, c.b, c.r);
        resolveChannel(c.r, c.g, c.b);
    }
}

}  // namespace

/// A factor lies between two steps of 1 / 65536. A line whose factor is a little too large decides the near
/// ties of a factor that lies a little above a round number, and one whose factor is too small the others.
ContrastTable::ContrastTable(double f, std::int32_t mean) {
    for (int i = 0; i < 256; ++i) m_values[static_cast<std::size_t>(i)] = roundInt(f * (i - mean) + mean);
    const auto isSmall = [](std::int32_t value) { return value >= -kMostContrast && value <= kMostContrast; };
    if (!isSmall(mean) || !std::all_of(m_values.begin(), m_values.end(), isSmall)) return;
    const double whole = std::floor(f + 0.5);
    for (const double fraction : {std::floor((f - whole) * 65536), std::ceil((f - whole) * 65536)}) {
        const ContrastLine line{static_cast<std::int16_t>(mean), static_cast<std::int16_t>(whole),
                                static_cast<std::int16_t>(static_cast<int>(fraction))};
        if (hasValues(line)) m_line = line;
    }
}

bool ContrastTable::hasValues(const ContrastLine& line) const {
    const auto points = pointsOf(line);
    return std::equal(points.begin(), points.end(), m_values.begin());
}

void ContrastTable::run(std::uint8_t* row, int width) const {
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = m_line ? stretchContrast(row, count, *m_line) : 0; x < count; ++x) {
        std::uint8_t* const pixel = row + x * 4;
        Channels c{m_values[pixel[0]], m_values[pixel[1]], m_values[pixel[2]]};
        resolveClipping(c);
        pixel[0] = static_cast<std::uint8_t>(c.b);
        pixel[1] = static_cast<std::uint8_t>(c.g);
        pixel[2] = static_cast<std::uint8_t>(c.r);
    }
}

}  // namespace mobrel::kernels
