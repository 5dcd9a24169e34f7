// SPDX-License-Identifier: MIT
// The second pass of Contrast in vectors.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// The line Round((whole + fraction / 65536) (i - centre)) + centre, with ties to the even sum.
struct ContrastLine {
    std::int16_t centre;
    std::int16_t whole;
    std::int16_t fraction;
};

/// The line at 0 to 255, as stretchContrast takes it. Zeros where there are no vectors.
extern const VectorKernel<std::array<std::int16_t, 256>(const ContrastLine& line)> pointsOf;

/// Values up to this magnitude stay within 16 bits while their excess moves to and fro: all three channels
/// together are never further out of range than they were at first.
constexpr std::int32_t kMostContrast = 10'000;

/// Does a row from its first pixel and tells how many pixels it has done; what is left is less than two
/// vectors. For the table that the line stands for, of no value beyond kMostContrast.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const ContrastLine& line)>
    stretchContrast;

}  // namespace mobrel::kernels
