// SPDX-License-Identifier: MIT
// Packs palette indices into rows of the index map.
#pragma once

#include <cstdint>

namespace mobrel {

/// Packs `width` indices, one a byte, at 1, 4 or 8 bits each, the first one in the highest bits. What the
/// last byte has left is 0.
void packIndices(const std::uint8_t* indices, int width, int bits, std::uint8_t* row);

}  // namespace mobrel
