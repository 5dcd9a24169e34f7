// SPDX-License-Identifier: MIT
// Blur, Soften and Sharpen: weighted means of the pixels around a pixel.
#pragma once

#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"

namespace mobrel::kernels {

/// (the eight around + w c) div (w + 8). Error 6 outside a byte, 11 when w + 8 is 0.
void blurRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

/// (the four beside + w c) div (w + 4). Errors as blurRow.
void softenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

/// (w c - the eight around) div (w - 8), limited to a byte. Error 11 when w - 8 is 0.
void sharpenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

}  // namespace mobrel::kernels
