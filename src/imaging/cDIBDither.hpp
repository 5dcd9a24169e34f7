// SPDX-License-Identifier: MIT
// Reduces pictures to 1, 4 or 8 bits, with error diffusion, and holds the index map.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/base/Event.hpp"

namespace mobrel {

/// Each reducer changes the pixels of the surface to the reduced colours and fills the index map: the
/// packed palette indices, byte for byte the pixel rows of a BMP file (bottom row first, rows rounded up
/// to 4 bytes, the leftmost pixel in the highest bits). Rows are scanned from the bottom, each from
/// left to right. On an empty surface a reducer does nothing and raises nothing.
class cDIBDither {
 public:
    /// Raised after each finished row; over two passes the value climbs by a half each.
    Event<std::int32_t> Progress;
    Event<> ProgressEnd;

    /// Makes the map anew, zeroed, for nWidth x nHeight pixels of nbpp bits (1, 4 or 8), and lends its
    /// first byte.
    std::uint8_t* InitializePalID(int nWidth, int nHeight, int nbpp);
    /// The whole map.
    std::span<const std::uint8_t> PalID() const noexcept { return m_map; }
    std::uint8_t* PalIDPtr() noexcept { return m_map.data(); }

    /// Black and white about the picture's mean plain grey, with the 12-point kernel of Stucki. Of an
    /// error 10 / PalWeight takes effect. Error 11 for a PalWeight of 0.
    void DitherToBlackAndWhite(cDIB& DIB, std::int32_t PalWeight);
    /// 256, 16 or 2 greys, by the number of the palette's entries, which are taken to be even greys.
    /// Without Diffuse the pixels become the full grey and only the map is reduced. Error 5 for any
    /// other number of entries.
    void DitherToGreyPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse);
    /// The palette's entry nearest to the pixel's place in a cube of 16 levels a channel. Error 5 for a
    /// number of entries that is not 256, 16 or 2, 91 for a palette that no builder has made, 9 for
    /// one that was made shorter since.
    void DitherToColorPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse);
    /// Changes nothing; raises Progress from 0 to the height, then ProgressEnd.
    void DitherToTrueColor(const cDIB& DIB);

    /// The number of different colours, which falls short for a picture of more than 32,767 pairs of red
    /// and blue. Raises nothing.
    std::int32_t CountColors(const cDIB& DIB) const;

 private:
    std::vector<std::uint8_t> m_map;
};

}  // namespace mobrel
