// SPDX-License-Identifier: MIT
// Rows of a bitmap file that are written pixel for pixel.
#pragma once

#include <cstdint>

#include "platform/pictures/BmpHeader.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Throws PictureError: the file ends in that row, counted from 0 in the order of the file.
[[noreturn]] void failInRow(std::int64_t row, const BmpHeader& header);

/// Throws PictureError when the rows need more than `available` bytes. The padding behind the last row is
/// not needed.
void checkRowBytes(const BmpHeader& header, std::uint64_t available);

/// Fills the picture's pixels, which have the header's size, and its index map. Memory of the map is taken
/// as rows arrive, or at once where the source has told that they are there. Throws PictureError when the
/// rows are cut short.
void readRows(BufferedSource& input, const BmpHeader& header, StdPicture& picture);

}  // namespace mobrel
