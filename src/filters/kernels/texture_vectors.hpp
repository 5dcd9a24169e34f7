// SPDX-License-Identifier: MIT
// Textures in vectors.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// texturizeRow, in whole numbers of 128ths, from the first pixel on. How many pixels are done; what is left
/// is less than a vector.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count, const std::uint8_t* texture)>
    texturizePixels;

}  // namespace mobrel::kernels
