// SPDX-License-Identifier: MIT
// Rank filters in vectors. Each kernel writes the inner pixels of a row and says so, or writes nothing and
// says false where the row is too short for a vector.
#pragma once

#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// maximumRow.
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width)> dilatePixels;

/// minimumRow.
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width)> erodePixels;

}  // namespace mobrel::kernels
