// SPDX-License-Identifier: MIT
#include "imaging/diffusion/ErrorDiffusion.hpp"

#include <algorithm>
#include <cstring>

namespace mobrel {

RowBand::RowBand(cDIB& DIB, const Paint& paint, int mostRows)
    : m_pixels(DIB.DIBitsPtr()),
      m_width(DIB.Width()),
      m_height(DIB.Height()),
      m_mostRows(std::min(mostRows, m_height)),
      m_paint(paint),
      m_paintsByte3(std::ranges::any_of(paint.colours, [](std::uint32_t c) { return c >> 24 != 0; })),
      m_indices(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_mostRows)) {}

void RowBand::select(int y) {
    m_first = y;
    m_rows = std::min(m_mostRows, m_height - y);
}

void RowBand::set(int row, int x, std::uint8_t index) {
    std::uint8_t* const at = pixel(row, x);
    std::uint32_t value = 0;
    std::memcpy(&value, at, 4);
    value = m_paint.colours[index] | (value & m_paint.kept);
    std::memcpy(at, &value, 4);
    indices(row)[x] = index;
}

void reduceRows(cDIB& DIB, const Paint& paint, const std::function<void(RowBand&)>& reduceRow,
                const RowDone& rowDone) {
    RowBand row(DIB, paint, 1);
    for (int y = 0; y < DIB.Height(); ++y) {
        row.select(y);
        reduceRow(row);
        rowDone(y, row.indices(0));
    }
}

void diffuse(cDIB& DIB, const Paint& paint, const std::function<void(RowBand&)>& reduceRow,
             const std::function<void(std::span<RowBand>)>& reduceBands, const RowDone& rowDone) {
    const int mostRows = wavefrontRows();
    if (mostRows == 0) return reduceRows(DIB, paint, reduceRow, rowDone);
    std::array<RowBand, 2> bands = {RowBand(DIB, paint, mostRows), RowBand(DIB, paint, mostRows)};
    for (int y = 0; y < DIB.Height();) {
        bands[0].select(y);
        bands[1].select(y + bands[0].rows());
        const std::span<RowBand> used(bands.data(), bands[1].rows() > 0 ? 2 : 1);
        reduceBands(used);
        for (RowBand& band : used) {
            for (int row = 0; row < band.rows(); ++row, ++y) rowDone(y, band.indices(row));
        }
    }
}

}  // namespace mobrel
