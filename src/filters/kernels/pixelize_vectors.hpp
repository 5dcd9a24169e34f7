// SPDX-License-Identifier: MIT
// Sums and means of blocks in vectors. Each kernel begins with the first element and tells how many it has
// done; what is left is less than a vector.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// Sums below this are divided exactly in single precision, by counts up to kMostCount: no quotient lies
/// nearer to the next whole number than rounding moves it.
constexpr std::uint32_t kSumsBelow = std::uint32_t{1} << 24;
constexpr std::int32_t kMostCount = (kSumsBelow - 1) / 255;

/// The sums of the bytes of rows that lie one after the other, for each byte of a row. At most 257 rows.
extern const VectorKernel<std::size_t(const std::uint8_t* bytes, std::size_t rowBytes, std::size_t rows,
                                      std::uint16_t* sums)>
    sumRows;

/// Adds `size` columns of four channels each to the four sums of a block, for as many blocks.
extern const VectorKernel<std::size_t(const std::uint16_t* columns, std::size_t blocks, std::size_t size,
                                      std::uint32_t* sums)>
    addBlocks;

/// Writes the whole quotients of sums and `divisor`, which fit a byte.
extern const VectorKernel<std::size_t(const std::uint32_t* sums, std::size_t count, std::int32_t divisor,
                                      std::uint8_t* means)>
    divideSums;

}  // namespace mobrel::kernels
