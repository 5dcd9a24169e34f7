// SPDX-License-Identifier: MIT
// Tiles of 4 x 4 pixels on their way between the rows of a picture and the block of a band, in vectors: for
// waves, which there are only with vectors.
#pragma once

#include <cstddef>
#include <cstdint>

namespace mobrel {

inline constexpr int kTileSide = 4;

/// The first tile: 4 pixels of each of 4 rows, and where their indices go.
struct TileRows {
    std::uint8_t* pixels;
    std::ptrdiff_t pixelPitch;  // bytes from a row's first pixel to the next row's
    std::uint8_t* indices;
    std::ptrdiff_t indexPitch;
};

/// Copies the columns of tiles to slots of 4 pixels, of which each is `slotPitch` pixels behind the other. In
/// its rows a tile follows the other.
void tilesToSlots(const TileRows& rows, int tiles, std::uint32_t* slots, std::ptrdiff_t slotPitch);

/// Copies the colours, 0x00RRGGBB, from the slots over the pixels, which keep the bits of `kept`, and the
/// bytes above the colours to the indices.
void slotsToTiles(const std::uint32_t* slots, std::ptrdiff_t slotPitch, const TileRows& rows, int tiles,
                  std::uint32_t kept);

}  // namespace mobrel
