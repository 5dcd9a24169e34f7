// SPDX-License-Identifier: MIT
// Colorize, Greys, Negative, Saturation, ScanLines and ShiftRGB: each pixel depends on itself alone. A row is
// width pixels of blue, green, red, unused.
#pragma once

#include <array>
#include <cstdint>

namespace mobrel::kernels {

using ByteTable = std::array<std::uint8_t, 256>;

/// Round(0.707 G + 0.071 B + 0.222 R), summed in that order in double precision, on all channels.
void greysRow(std::uint8_t* row, int width);

/// Round(0.707 G + 0.222 R + 0.071 B), summed in that order: differs from greysRow where a sum lies on
/// a rounding tie.
void reliefGreysRow(std::uint8_t* row, int width);

/// 255 - c.
void negativeRow(std::uint8_t* row, int width);

/// Adds to blue, green and red, limited to a byte.
void shiftChannelsRow(std::uint8_t* row, int width, const std::array<int, 3>& increments);

/// Round(f c), limited to a byte; `table` has the same for every c.
void scaleRow(std::uint8_t* row, int width, double f, const ByteTable& table);

/// Each channel through its own table.
void tableRow(std::uint8_t* row, int width, const ByteTable& blue, const ByteTable& green,
              const ByteTable& red);

/// Round(f (c - g) + c), limited to a byte, g being the plain grey (R + G + B) div 3. Error 6 when the
/// rounded value does not fit 32 bits.
void saturationRow(std::uint8_t* row, int width, float f);

/// What Colorize makes of a pixel, which depends on the sum of its channels alone.
class ColorizeTable {
 public:
    ColorizeTable(float hue, float saturation, float luminosity);

    /// The new pixel, 0x00RRGGBB, for a sum of 0 to 765. Error 6 where a channel leaves the byte.
    std::uint32_t pixelOf(int sum) const;
    /// The new pixels of all sums; null where one of them is an error.
    const std::uint32_t* pixels() const { return m_hasErrors ? nullptr : m_pixels.data(); }

 private:
    std::array<std::uint32_t, 766> m_pixels{};
    bool m_hasErrors = false;
};

void colorizeRow(std::uint8_t* row, int width, const ColorizeTable& table);

}  // namespace mobrel::kernels
