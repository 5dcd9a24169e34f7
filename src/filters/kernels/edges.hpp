// SPDX-License-Identifier: MIT
// Contour and Outline: edges, where a pixel is darker than the brightest around it.
#pragma once

#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"

namespace mobrel::kernels {

/// 255 - (the largest of the nine - c).
void contourRow(Rows3 from, std::uint8_t* to, int width);

/// The five-point mean, minus k times the distance to the largest of the nine, plus shift; rounded and
/// limited to a byte. Error 6 when the rounded value does not fit 32 bits.
void outlineRow(Rows3 from, std::uint8_t* to, int width, float k, std::int32_t shift);

}  // namespace mobrel::kernels
