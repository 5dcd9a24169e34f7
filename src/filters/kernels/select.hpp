// SPDX-License-Identifier: MIT
// Inner loops that work through colour.
#pragma once

#include <array>
#include <cstdint>

namespace mobrel::kernels {

/// What Colorize makes of a pixel, which depends on the sum of its channels alone.
class ColorizeTable {
 public:
    ColorizeTable(float hue, float saturation, float luminosity);

    /// The new pixel, 0x00RRGGBB, for a sum of 0 to 765. Error 6 where a channel leaves the byte.
    std::uint32_t pixelOf(int sum) const;

 private:
    std::array<std::uint32_t, 766> m_pixels{};
};

void colorizeRow(std::uint8_t* row, int width, const ColorizeTable& table);

}  // namespace mobrel::kernels
