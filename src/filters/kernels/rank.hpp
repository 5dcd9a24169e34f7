// SPDX-License-Identifier: MIT
// RankFilterMaximum and RankFilterMinimum: the largest or the smallest of the pixels around a pixel.
#pragma once

#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"

namespace mobrel::kernels {

/// The largest, or the smallest, of the plus of five pixels.
void maximumRow(Rows3 from, std::uint8_t* to, int width);
void minimumRow(Rows3 from, std::uint8_t* to, int width);

}  // namespace mobrel::kernels
