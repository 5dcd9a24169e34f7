// SPDX-License-Identifier: MIT
#include "imaging/WaveBand.hpp"

#include <algorithm>
#include <cstring>

namespace mobrel {

WaveBand::WaveBand(cDIB& DIB, const Paint& paint)
    : m_pixels(DIB.DIBitsPtr()),
      m_width(DIB.Width()),
      m_height(DIB.Height()),
      m_paint(paint),
      m_indices(static_cast<std::size_t>(m_width) * kMostRows) {}

void WaveBand::select(int y, int most) {
    m_first = y;
    m_rows = std::min(most, m_height - y);
}

WaveBand::Part WaveBand::part(int row, int step) {
    const int column = step - kLag * (row + 1);
    const int first = std::max(column, 0);
    return {pixel(row, first), indices(row) + first,
            m_block.data() + std::ptrdiff_t{first - column} * kMostRows + row,
            std::min(column + kBlock, m_width) - first};
}

void WaveBand::load(int step) {
    for (int row = 0; row < m_rows; ++row) {
        const Part p = part(row, step);
        for (int i = 0; i < p.count; ++i) {
            std::memcpy(p.slot + std::ptrdiff_t{i} * kMostRows, p.pixels + std::ptrdiff_t{i} * 4, 4);
        }
    }
}

void WaveBand::store(int step) {
    for (int row = 0; row < m_rows; ++row) {
        const Part p = part(row, step);
        for (int i = 0; i < p.count; ++i) {
            const auto index = static_cast<std::uint8_t>(p.slot[std::ptrdiff_t{i} * kMostRows] >> 24);
            paint(p.pixels + std::ptrdiff_t{i} * 4, p.indices[i], index);
        }
    }
}

}  // namespace mobrel
