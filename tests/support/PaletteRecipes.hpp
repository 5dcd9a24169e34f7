// SPDX-License-Identifier: MIT
// Palettes once more, as slowly and plainly as their recipes read: the oracle of the palette tests.
#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <vector>

#include "support/TestPictures.hpp"

namespace mobrel::recipes {

using test::Picture;

/// Blue, green, red, reserved.
using Entry = std::array<std::uint8_t, 4>;

/// Empty when cleared.
struct Palette {
    std::vector<Entry> entries;

    bool operator==(const Palette&) const = default;

    /// How a failed comparison shows the palette: the entries' four bytes with points between them.
    friend void PrintTo(const Palette& palette, std::ostream* out) {
        for (const Entry& entry : palette.entries) {
            *out << +entry[0] << '.' << +entry[1] << '.' << +entry[2] << '.' << +entry[3] << ' ';
        }
    }
};

Palette createBlackAndWhite();
Palette createEGA();
Palette createHalftone();
Palette createWebsafe();
Palette createGreys016();
Palette createGreys256();

/// The pixels of the picture stretched to 4 x 4 or 16 x 16, all four bytes, in memory order. Black entries
/// for a picture without pixels.
Palette createFastOptimal016(const Picture& D);
Palette createFastOptimal256(const Picture& D);

/// The colour tree. PalSize is at least 1. Black entries for a picture without pixels. Error 9 when more
/// colours stay than PalSize, as the root's own children are never merged, and for a level above 8.
Palette createOptimal(const Picture& D, std::int32_t PalSize, int nLevels, float RWeight, float GWeight,
                      float BWeight);

/// The index of the entry with the least sum of squared differences, the lowest among equals. The palette
/// has 1 to 256 entries.
std::uint8_t closestColor(const Palette& palette, int R, int G, int B);

/// False for an empty palette.
bool isGreyScale(const Palette& palette);

/// The picture fitted to another size by taking for each pixel the one that lies under its centre, of two
/// the left one or the one nearer to the top of the picture. All four bytes are taken. Black with byte 3
/// of 0 for a picture without pixels; no pixels for a size without.
Picture stretched(const Picture& D, int width, int height);

}  // namespace mobrel::recipes
