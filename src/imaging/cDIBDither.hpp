// SPDX-License-Identifier: MIT
// The index map of a document of 1, 4 or 8 bits.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/Event.hpp"

namespace mobrel {

/// Holds the packed palette indices of a picture, byte for byte the pixel rows of a BMP file: bottom
/// row first, rows rounded up to 4 bytes, the leftmost pixel in the highest bits.
class cDIBDither {
 public:
    Event<std::int32_t> Progress;
    Event<> ProgressEnd;

    /// Makes the map anew, zeroed, for nWidth x nHeight pixels of nbpp bits (1, 4 or 8), and lends its
    /// first byte.
    std::uint8_t* InitializePalID(int nWidth, int nHeight, int nbpp);
    /// The whole map.
    std::span<const std::uint8_t> PalID() const noexcept { return m_map; }
    std::uint8_t* PalIDPtr() noexcept { return m_map.data(); }

 private:
    std::vector<std::uint8_t> m_map;
};

}  // namespace mobrel
