// SPDX-License-Identifier: MIT
// Rows of a bitmap file that are written as run-length codes of 4 or 8 bits.
#pragma once

#include <cstdint>

#include "platform/BmpHeader.hpp"
#include "platform/BmpInput.hpp"
#include "platform/StdPicture.hpp"

namespace mobrel {

/// Throws PictureError when no `codeBytes` bytes of codes can get to the last row and to the last column,
/// so that the size is a false claim.
///
/// The longest way per byte: a run is 2 bytes for up to 255 columns; a delta is 4 bytes for up to 255 rows;
/// an end of row is 2 bytes for 1 row. Hence at most 255 columns per begun 2 bytes, and, the pen being in
/// the first row to begin with, 1 row and 255 more per begun 4 bytes.
void checkRleReach(const BmpHeader& header, std::uint64_t codeBytes);

/// Fills the picture's pixels, which have the header's size and are still zero, and its index map. Pixels
/// that the codes pass over have index 0. Throws PictureError for codes that leave the picture, that end
/// before it does, or that cannot reach its size.
///
/// Source of the codes: Microsoft, "Bitmap Compression".
void readRleRows(BmpInput& input, const BmpHeader& header, StdPicture& picture);

}  // namespace mobrel
