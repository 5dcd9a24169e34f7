// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "imaging/WaveTiles.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "imaging/WaveTiles.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

void ToSlots(const TileRows&, int, std::uint32_t*, std::ptrdiff_t) {}
void ToTiles(const std::uint32_t*, std::ptrdiff_t, const TileRows&, int, std::uint32_t) {}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Pixels = hn::FixedTag<std::uint32_t, kTileSide>;
using Bytes = hn::Repartition<std::uint8_t, Pixels>;
using Indices = hn::Rebind<std::uint8_t, Pixels>;
using PixelVector = hn::Vec<Pixels>;

HWY_INLINE PixelVector loadPixels(const std::uint8_t* pixels) {
    return hn::BitCast(Pixels(), hn::LoadU(Bytes(), pixels));
}

/// Four lines of a tile; turned, its columns.
struct Tile {
    PixelVector lines[kTileSide];

    HWY_INLINE Tile turned() const {
        const Pixels d;
        const PixelVector lowerEven = hn::InterleaveLower(d, lines[0], lines[2]);
        const PixelVector lowerOdd = hn::InterleaveLower(d, lines[1], lines[3]);
        const PixelVector upperEven = hn::InterleaveUpper(d, lines[0], lines[2]);
        const PixelVector upperOdd = hn::InterleaveUpper(d, lines[1], lines[3]);
        return {{hn::InterleaveLower(d, lowerEven, lowerOdd), hn::InterleaveUpper(d, lowerEven, lowerOdd),
                 hn::InterleaveLower(d, upperEven, upperOdd), hn::InterleaveUpper(d, upperEven, upperOdd)}};
    }
};

void ToSlots(const TileRows& rows, int tiles, std::uint32_t* slots, std::ptrdiff_t slotPitch) {
    const std::uint8_t* pixels = rows.pixels;
    for (int tile = 0; tile < tiles; ++tile, pixels += kTileSide * 4) {
        const Tile columns =
            Tile{{loadPixels(pixels), loadPixels(pixels + rows.pixelPitch),
                  loadPixels(pixels + 2 * rows.pixelPitch), loadPixels(pixels + 3 * rows.pixelPitch)}}
                .turned();
        for (const PixelVector& column : columns.lines) {
            hn::Store(column, Pixels(), slots);
            slots += slotPitch;
        }
    }
}

void ToTiles(const std::uint32_t* slots, std::ptrdiff_t slotPitch, const TileRows& rows, int tiles,
             std::uint32_t kept) {
    const Pixels d;
    const PixelVector colours = hn::Set(d, 0x00FFFFFF);
    const PixelVector stays = hn::Set(d, kept);
    for (int tile = 0; tile < tiles; ++tile, slots += kTileSide * slotPitch) {
        const Tile lines = Tile{{hn::Load(d, slots), hn::Load(d, slots + slotPitch),
                                 hn::Load(d, slots + 2 * slotPitch), hn::Load(d, slots + 3 * slotPitch)}}
                               .turned();
        std::uint8_t* pixels = rows.pixels + std::ptrdiff_t{tile} * kTileSide * 4;
        std::uint8_t* indices = rows.indices + std::ptrdiff_t{tile} * kTileSide;
        for (const PixelVector& line : lines.lines) {
            const PixelVector painted = hn::Or(hn::And(line, colours), hn::And(loadPixels(pixels), stays));
            hn::StoreU(hn::BitCast(Bytes(), painted), Bytes(), pixels);
            hn::StoreU(hn::U8FromU32(hn::ShiftRight<24>(line)), Indices(), indices);
            pixels += rows.pixelPitch;
            indices += rows.indexPitch;
        }
    }
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTORS(ToSlots);
MOBREL_VECTORS(ToTiles);

void tilesToSlots(const TileRows& rows, int tiles, std::uint32_t* slots, std::ptrdiff_t slotPitch) {
    MOBREL_BEST(ToSlots)(rows, tiles, slots, slotPitch);
}

void slotsToTiles(const std::uint32_t* slots, std::ptrdiff_t slotPitch, const TileRows& rows, int tiles,
                  std::uint32_t kept) {
    MOBREL_BEST(ToTiles)(slots, slotPitch, rows, tiles, kept);
}

}  // namespace mobrel

#endif  // HWY_ONCE
