// SPDX-License-Identifier: MIT
// The properties of a picture, as they are told.
#pragma once

#include <cstdint>
#include <string>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"

namespace mobrel {

struct PictureInfo {
    int width = 0;
    int height = 0;
    /// 1, 4, 8 or 24 bits.
    int depth = 0;
    /// "16 colors", "256 greys" ...
    std::string palette;
    std::int32_t colorsUsed = 0;
    /// Of an uncompressed BMP file of that depth.
    std::int32_t bitmapBytes = 0;
};

/// The properties of a picture that counts as one of `depth` bits. Looks at all pixels.
PictureInfo infoOf(const cDIB& DIB, const cDIBPal& Pal, const cDIBDither& Dither, int depth);

/// Bytes of the picture as a BMP file of that depth; by the same sum 58 for an empty one of depth 0.
std::int32_t pvCalcSize(int width, int height, int bpp);

/// "Black and White", "16 greys", "256 colors" ...; "None" at 24 bits, the empty text at any other depth.
std::string paletteLabel(int bpp, bool isGrey);

/// The size in units of 1,024 bytes with one decimal: "0.1 Kb".
std::string bitmapSizeLabel(std::int32_t bytes);

}  // namespace mobrel
