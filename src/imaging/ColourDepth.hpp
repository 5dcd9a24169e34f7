// SPDX-License-Identifier: MIT
// The depth commands: what makes a picture one of 1, 4, 8 or 24 bits, and how its depth is told.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"

namespace mobrel {

/// A depth command by its place in the menu of colours; 3 and 7 are separators.
enum class DepthCommand : int {
    BlackAndWhite = 0,
    Greys16 = 1,
    Greys256 = 2,
    TwoColors = 4,  // the same as BlackAndWhite
    Colors16 = 5,
    Colors256 = 6,
    TrueColor = 8,
};

/// The parts of a document that a depth command works on.
struct DepthDocument {
    cDIB& DIB;
    cDIBPal& Pal;
    cDIBDither& Dither;
    /// The depth that the document counts as; set before the pixel work, whose end event may store it.
    std::uint8_t& BPP;
};

/// Runs a depth command; an index that is none does nothing. A colour command on a document whose
/// palette is grey takes the even greys of that depth: colours that are gone cannot come back. Other
/// palettes are fitted to a copy of at most 150 x 150 pixels, of at least 1 pixel a side.
/// `hourglass` is called with true before a palette is fitted to the picture and with false after it.
void changeDepth(int Index, const DepthDocument& document, const std::function<void(bool)>& hourglass);

/// Bytes of the picture as a BMP file of that depth; by the same sum 58 for an empty one of depth 0.
std::int32_t pvCalcSize(int width, int height, int bpp);

/// "Black and White", "16 greys", "256 colors" ...; "None" at 24 bits, the empty text at any other depth.
std::string paletteLabel(int bpp, bool isGrey);

/// The size in units of 1,024 bytes with one decimal: "0.1 Kb".
std::string bitmapSizeLabel(std::int32_t bytes);

}  // namespace mobrel
