// SPDX-License-Identifier: MIT
#include "filters/kernels/select.hpp"

#include "filters/mHSL.hpp"
#include "platform/Numbers.hpp"

namespace mobrel::kernels {

namespace {

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

ColorizeTable::ColorizeTable(float hue, float saturation, float luminosity) {
    for (std::size_t sum = 0; sum < m_pixels.size(); ++sum) {
        m_pixels[sum] = colorized(static_cast<int>(sum), hue, saturation, luminosity);
    }
}

std::uint32_t ColorizeTable::pixelOf(int sum) const {
    const std::uint32_t pixel = m_pixels[static_cast<std::size_t>(sum)];
    if (pixel == kOverflow) throw RuntimeError(ErrorNumber::Overflow);
    return pixel;
}

void colorizeRow(std::uint8_t* row, int width, const ColorizeTable& table) {
    for (int x = 0; x < width; ++x, row += 4) {
        const std::uint32_t pixel = table.pixelOf(row[2] + row[1] + row[0]);
        row[0] = static_cast<std::uint8_t>(pixel);
        row[1] = static_cast<std::uint8_t>(pixel >> 8);
        row[2] = static_cast<std::uint8_t>(pixel >> 16);
    }
}

}  // namespace mobrel::kernels
