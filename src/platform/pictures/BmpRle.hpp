// SPDX-License-Identifier: MIT
// Rows of a bitmap file that are written as run-length codes of 4 or 8 bits.
#pragma once

#include <cstdint>

#include "platform/pictures/BmpHeader.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Throws PictureError for a picture of more than 2^20 pixels that `codeBytes` bytes of codes cannot fill
/// with the longest runs, 255 pixels in 2 bytes. Codes may pass over pixels in larger steps, but a large
/// picture made that way would take memory that the file has not paid for.
void checkRleReach(const BmpHeader& header, std::uint64_t codeBytes);

/// Fills the picture's pixels, which have the header's size and are still zero, and its index map. Pixels
/// that the codes pass over have index 0. Throws PictureError for codes that leave the picture, that end
/// before it does, or that cannot reach its size.
///
/// Source of the codes: Microsoft, "Bitmap Compression".
void readRleRows(BufferedSource& input, const BmpHeader& header, StdPicture& picture);

}  // namespace mobrel
