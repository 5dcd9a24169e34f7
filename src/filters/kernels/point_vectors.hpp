// SPDX-License-Identifier: MIT
// Point kernels in vectors. Each does a row from its first pixel and tells how many pixels it has done; what
// is left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// Adds the bytes of `up` to those of each pixel and takes those of `down` away, both within 0 to 255.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, std::uint32_t up,
                                      std::uint32_t down)>
    shiftPixels;

/// negativeRow.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count)> invertPixels;

/// Each channel c becomes Round(f c), limited to a byte. For f up to kMostFactor.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, double f)> scalePixels;

/// saturationRow, for f up to kMostFactor.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, double f)> saturatePixels;

/// Each pixel becomes the entry of its sum of channels, 0x00RRGGBB, of 766 entries.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const std::uint32_t* table)>
    colorizePixels;

}  // namespace mobrel::kernels
