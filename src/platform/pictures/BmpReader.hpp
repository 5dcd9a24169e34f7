// SPDX-License-Identifier: MIT
// Reads Windows and OS/2 bitmap files.
#pragma once

#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Reads one BMP from the source, from its first byte (the letters BM).
///
/// Takes information headers of 12, 40, 52, 56, 108 and 124 bytes; 1, 4, 8, 16, 24 and 32 bits;
/// uncompressed rows, bit fields, RLE4 and RLE8; rows in either order. The result has the source's
/// depth, and its pixels are decoded straight into the memory that becomes the surface.
///
/// Throws PictureError when the file is no BMP, is cut short, contradicts itself, or asks for a
/// picture that no surface can hold or that has more than options.maxPixels; a size is checked against
/// the bytes that are there before any memory is taken for it. Where the source does not know them, memory is
/// used up only as they arrive. std::bad_alloc when memory is short.
///
/// Source of the format: Microsoft, "Bitmap Storage" and "BITMAPINFOHEADER structure".
StdPicture readBmp(BufferedSource& source, const ReadOptions& options = {});

}  // namespace mobrel
