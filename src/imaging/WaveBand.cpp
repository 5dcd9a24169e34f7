// SPDX-License-Identifier: MIT
#include "imaging/WaveBand.hpp"

#include <algorithm>

namespace mobrel {

WaveBand::WaveBand(cDIB& DIB, const Paint& paint)
    : m_pixels(DIB.DIBitsPtr()),
      m_width(DIB.Width()),
      m_height(DIB.Height()),
      m_paint(paint),
      m_paintsByte3(std::ranges::any_of(paint.colours, [](std::uint32_t c) { return c >> 24 != 0; })),
      m_indices(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(std::min(kMostRows, m_height))) {
}

void WaveBand::select(int y, int most) {
    m_first = y;
    m_rows = std::min(most, m_height - y);
}

void WaveBand::set(int row, int x, std::uint8_t index) {
    std::uint8_t* const at = pixel(row, x);
    std::uint32_t value = 0;
    std::memcpy(&value, at, 4);
    value = m_paint.colours[index] | (value & m_paint.kept);
    std::memcpy(at, &value, 4);
    indices(row)[x] = index;
}

WaveBand::Steps WaveBand::tiled(int row, int step) const {
    if (row + kTileSide > m_rows) return {0, 0};
    const int from = std::max(0, -column(row + kTileSide - 1, step));
    const int room = m_width - column(row, step);
    return {from, std::max(from, std::min(room / kTileSide * kTileSide, kBlock))};
}

/// In step with the wave, the next row's first pixel is kLag columns further left.
TileRows WaveBand::tilesAt(int row, int step) {
    const int x = column(row, step);
    return {pixel(row, x), (std::ptrdiff_t{m_width} - kLag) * 4, indices(row) + x,
            std::ptrdiff_t{m_width} - kLag};
}

void WaveBand::load(int step) {
    for (int row = 0; row < m_rows; row += kTileSide) {
        const Steps tiles = tiled(row, step);
        if (tiles.from < tiles.to) {
            tilesToSlots(tilesAt(row, step + tiles.from), (tiles.to - tiles.from) / kTileSide,
                         slot(row, tiles.from), kMostRows);
        }
        for (int j = row; j < std::min(row + kTileSide, m_rows); ++j) {
            loadPlainly(j, step, {0, tiles.from});
            loadPlainly(j, step, {tiles.to, kBlock});
        }
    }
}

void WaveBand::store(int step) {
    for (int row = 0; row < m_rows; row += kTileSide) {
        const Steps tiles = tiled(row, step);
        if (tiles.from < tiles.to) {
            slotsToTiles(slot(row, tiles.from), kMostRows, tilesAt(row, step + tiles.from),
                         (tiles.to - tiles.from) / kTileSide, m_paint.kept);
        }
        for (int j = row; j < std::min(row + kTileSide, m_rows); ++j) {
            if (m_paintsByte3) setByte3(j, step, tiles);
            storePlainly(j, step, {0, tiles.from});
            storePlainly(j, step, {tiles.to, kBlock});
        }
    }
}

void WaveBand::loadPlainly(int row, int step, Steps steps) {
    const int end = std::min(steps.to, m_width - column(row, step));
    for (int k = std::max(steps.from, -column(row, step)); k < end; ++k) {
        std::memcpy(slot(row, k), pixel(row, column(row, step + k)), 4);
    }
}

void WaveBand::storePlainly(int row, int step, Steps steps) {
    const int end = std::min(steps.to, m_width - column(row, step));
    for (int k = std::max(steps.from, -column(row, step)); k < end; ++k) {
        set(row, column(row, step + k), static_cast<std::uint8_t>(*slot(row, k) >> 24));
    }
}

/// Tiles bring three bytes of a colour.
void WaveBand::setByte3(int row, int step, Steps tiles) {
    for (int x = column(row, step + tiles.from); x < column(row, step + tiles.to); ++x) {
        pixel(row, x)[3] = static_cast<std::uint8_t>(m_paint.colours[indices(row)[x]] >> 24);
    }
}

}  // namespace mobrel
