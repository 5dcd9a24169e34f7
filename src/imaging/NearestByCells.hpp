// SPDX-License-Identifier: MIT
// Exact nearest-colour search for many colours in one palette, by cells of the colour cube.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// Answers as NearestByFullSearch does, by lists of the entries that can be nearest in each small cell of the
/// colour cube, made when the cell is first asked for. Keeps the colours it was made with; 1 to 256.
class NearestByCells {
 public:
    explicit NearestByCells(std::span<const RgbQuad> entries);

    std::uint8_t index(const RgbQuad& colour);

 private:
    static constexpr int kCellBits = 3;
    static constexpr int kCellSide = 1 << kCellBits;
    static constexpr std::size_t kCellsASide = 256 >> kCellBits;

    struct Cell {
        std::uint32_t first = 0;
        std::uint32_t count = 0;  // 0 until it is asked for
    };

    void fill(Cell& cell, const RgbQuad& colour);

    std::vector<RgbQuad> m_entries;
    std::vector<Cell> m_cells;
    std::vector<RgbQuad> m_candidates;  // the last byte is the index
};

}  // namespace mobrel
