// SPDX-License-Identifier: MIT
// Colour reduction once more, as slowly and plainly as its recipes read: the oracle of the dither tests.
#pragma once

#include <cstdint>
#include <vector>

#include "support/EventLog.hpp"
#include "support/PaletteRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::recipes {

using test::EventLog;

/// Packed palette indices, rows as in the pixel block of a BMP file: row r belongs to memory row r of the
/// picture, and a row is filled up with zeros to a multiple of 4 bytes.
struct IndexMap {
    int width = 0;
    int height = 0;
    int bitsPixel = 0;
    std::vector<std::uint8_t> bytes;

    IndexMap() = default;
    /// All zeros. Error 9 for 0 bits a pixel.
    IndexMap(int newWidth, int newHeight, int newBitsPixel);

    bool operator==(const IndexMap&) const = default;

    int stride() const;
    /// Writes one index of 1, 4 or 8 bits: the leftmost pixel of a byte stands in its highest bits.
    void set(int x, int row, int index);
};

/// Each reducer changes the picture in place, makes the map anew and logs its events. It does and logs
/// nothing on a picture without pixels. An error leaves all as it is at that step. The depth follows the
/// palette's size, 2, 16 or 256; error 9 before anything else for another.

/// Error 11 for a PalWeight of 0, at the first pixel that takes errors in.
void ditherToBlackAndWhite(Picture& D, IndexMap& map, std::int32_t PalWeight, EventLog& log);
void ditherToGreyPalette(Picture& D, IndexMap& map, const Palette& Pal, bool Diffuse, EventLog& log);
void ditherToColorPalette(Picture& D, IndexMap& map, const Palette& Pal, bool Diffuse, EventLog& log);
void ditherToTrueColor(const Picture& D, EventLog& log);

/// Distinct colours without byte 3. Counting stops where the 32,768th pair of red and blue is met.
std::int32_t countColors(const Picture& D);

/// What a depth command works on.
struct Document {
    Picture picture;
    Palette palette;
    IndexMap map;
    int BPP = 0;

    bool operator==(const Document&) const = default;
};

/// The size of the copy that an optimal palette is fitted to: as large as it can be in 150 x 150, but not
/// larger than the picture. One side is 0 for a picture some 300 times as long as wide.
test::PictureSize paletteSampleSize(int width, int height);

/// One depth command: 0 and 4 black and white, 1 16 greys, 2 256 greys, 5 16 colours, 6 256 colours, 8 true
/// colour. Any other index does nothing.
void depthCommand(Document& document, std::int32_t Index, EventLog& log);

}  // namespace mobrel::recipes
