// SPDX-License-Identifier: MIT
// Point kernels in vectors. Each does a row from its first pixel and tells how far it came.
#pragma once

#include <cstddef>
#include <cstdint>

namespace mobrel::kernels {

/// Adds the bytes of `up` to those of each pixel and takes those of `down` away, both within 0 to 255. How
/// many are done; what is left is less than a vector.
std::size_t shiftedPixels(std::uint8_t* row, std::size_t count, std::uint32_t up, std::uint32_t down);

/// Inverts the colours of pixels. How many are done; what is left is less than a vector.
std::size_t invertedPixels(std::uint8_t* row, std::size_t count);

}  // namespace mobrel::kernels
