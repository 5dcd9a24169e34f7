// SPDX-License-Identifier: MIT
// Kernels whose recipes round products, in vectors. They round the same products of double precision, or
// whole numbers that stand for them exactly. Each begins with the first pixel and tells how many pixels it
// has done; what is left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"

namespace mobrel::kernels {

/// Factors and summands up to which no rounded value leaves 32 bits.
constexpr double kMostFactor = 1'000'000;

/// Each channel c becomes Round(f c), limited to a byte.
std::size_t scaledPixels(std::uint8_t* row, std::size_t count, double f);

/// saturationRow.
std::size_t saturatedPixels(std::uint8_t* row, std::size_t count, double f);

/// embossRow, for pixels that have a neighbour: pixel i of `neighbours` is that of pixel i.
std::size_t embossedPixels(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to,
                           std::size_t count, double f);

/// relieveRow by multiplication with `inverse`, for `count` pixels from column 1.
std::size_t relievedPixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double inverse);

/// outlineRow, for `count` pixels from column 1.
std::size_t outlinedPixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double shift);

/// texturizeRow, in whole numbers of 128ths.
std::size_t texturizedPixels(std::uint8_t* row, std::size_t count, const std::uint8_t* texture);

/// Each pixel becomes the entry of its sum of channels, 0x00RRGGBB, of 766 entries.
std::size_t pixelsBySum(std::uint8_t* row, std::size_t count, const std::uint32_t* table);

}  // namespace mobrel::kernels
