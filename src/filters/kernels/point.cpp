// SPDX-License-Identifier: MIT
#include "filters/kernels/point.hpp"

#include <algorithm>
#include <cstdlib>

#include "filters/kernels/factors.hpp"
#include "filters/kernels/point_vectors.hpp"
#include "filters/mHSL.hpp"
#include "imaging/WeightedGrey.hpp"
#include "imaging/grey_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// Sets each pixel to its weighted grey; sum(b, g, r) adds the weighted channels in its own order, which
/// counts where vectors stop.
template <typename Sum>
void setGreys(std::uint8_t* row, int width, Sum sum) {
    constexpr std::size_t kStep = 16;
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = 0; x < count;) {
        x += greyUntilTie(row + x * 4, count - x);
        for (const std::size_t end = std::min(count, x + kStep); x < end; ++x) {
            std::uint8_t* const pixel = row + x * 4;
            const double grey = sum(kBlueWeight[pixel[0]], kGreenWeight[pixel[1]], kRedWeight[pixel[2]]);
            pixel[0] = pixel[1] = pixel[2] = toByte(roundInt(grey));
        }
    }
}

// No pixel: byte 3 of a real one is 0. An overflow is an error of the pixel that meets it.
constexpr std::uint32_t kOverflow = 0xFFFFFFFF;

std::uint32_t colorized(int sum, float hue, float saturation, float luminosity) {
    const auto v = static_cast<float>(sum / 765.0);
    const auto L = static_cast<float>(static_cast<double>(v) * luminosity);
    std::uint32_t pixel = kOverflow;
    skipErrors([&] {
        const auto [R, G, B] = mHSL::HSLToRGB(hue, saturation, L);
        pixel = static_cast<std::uint32_t>(R << 16 | G << 8 | B);
    });
    return pixel;
}

}  // namespace

void greysRow(std::uint8_t* row, int width) {
    setGreys(row, width, [](double b, double g, double r) { return g + b + r; });
}

void reliefGreysRow(std::uint8_t* row, int width) {
    setGreys(row, width, [](double b, double g, double r) { return g + r + b; });
}

void shiftChannelsRow(std::uint8_t* row, int width, const std::array<int, 3>& increments) {
    std::uint32_t up = 0;
    std::uint32_t down = 0;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const int increment = std::clamp(increments[channel], -255, 255);
        (increment < 0 ? down : up) |= static_cast<std::uint32_t>(std::abs(increment)) << (8 * channel);
    }
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = shiftPixels(row, count, up, down); x < count; ++x) {
        for (std::size_t channel = 0; channel < 3; ++channel) {
            std::uint8_t& value = row[x * 4 + channel];
            value = clampByte(value + std::clamp(increments[channel], -255, 255));
        }
    }
}

void negativeRow(std::uint8_t* row, int width) {
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = invertPixels(row, count); x < count; ++x) {
        for (std::size_t channel = 0; channel < 3; ++channel) row[x * 4 + channel] ^= 0xFF;
    }
}

void tableRow(std::uint8_t* row, int width, const ByteTable& blue, const ByteTable& green,
              const ByteTable& red) {
    for (int x = 0; x < width; ++x, row += 4) {
        row[0] = blue[row[0]];
        row[1] = green[row[1]];
        row[2] = red[row[2]];
    }
}

void scaleRow(std::uint8_t* row, int width, double f, const ByteTable& table) {
    std::size_t done = 0;
    if (std::abs(f) <= kMostFactor) done = scalePixels(row, static_cast<std::size_t>(width), f);
    tableRow(row + done * 4, width - static_cast<int>(done), table, table, table);
}

void saturationRow(std::uint8_t* row, int width, float f) {
    const double strength = f;
    int x = 0;
    if (std::abs(strength) <= kMostFactor) {
        x = static_cast<int>(saturatePixels(row, static_cast<std::size_t>(width), strength));
    }
    for (row += std::ptrdiff_t{x} * 4; x < width; ++x, row += 4) {
        const int grey = plainGrey(row);
        for (int channel = 0; channel < 3; ++channel) {
            const int c = row[channel];
            row[channel] = clampByte(roundInt(strength * (c - grey) + c));
        }
    }
}

ColorizeTable::ColorizeTable(float hue, float saturation, float luminosity) {
    for (std::size_t sum = 0; sum < m_pixels.size(); ++sum) {
        m_pixels[sum] = colorized(static_cast<int>(sum), hue, saturation, luminosity);
        m_hasErrors |= m_pixels[sum] == kOverflow;
    }
}

std::uint32_t ColorizeTable::pixelOf(int sum) const {
    const std::uint32_t pixel = m_pixels[static_cast<std::size_t>(sum)];
    if (pixel == kOverflow) throw RuntimeError(ErrorNumber::Overflow);
    return pixel;
}

void colorizeRow(std::uint8_t* row, int width, const ColorizeTable& table) {
    int x = 0;
    if (const std::uint32_t* const pixels = table.pixels()) {
        x = static_cast<int>(colorizePixels(row, static_cast<std::size_t>(width), pixels));
    }
    for (row += std::ptrdiff_t{x} * 4; x < width; ++x, row += 4) {
        const std::uint32_t pixel = table.pixelOf(row[2] + row[1] + row[0]);
        row[0] = static_cast<std::uint8_t>(pixel);
        row[1] = static_cast<std::uint8_t>(pixel >> 8);
        row[2] = static_cast<std::uint8_t>(pixel >> 16);
    }
}

}  // namespace mobrel::kernels
