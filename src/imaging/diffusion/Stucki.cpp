// SPDX-License-Identifier: MIT
#include "imaging/diffusion/Stucki.hpp"

#include <algorithm>

#include "imaging/WeightedGrey.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

Stucki::Stucki(int width, int threshold, std::int32_t weight)
    : m_width(width), m_threshold(threshold), m_weight(weight), m_errors(width) {
    for (auto& line : m_lines) line.resize(static_cast<std::size_t>(width));
}

void Stucki::reduceBands(std::span<RowBand> bands) {
    diffuseBlackAndWhite(bands, m_threshold, m_weight, m_errors);
}

void Stucki::reduceRow(RowBand& row) {
    for (int x = 0; x < m_width; ++x) {
        const std::int32_t stored = m_lines[0][static_cast<std::size_t>(x)];
        const int v = clampByte(plainGrey(row.pixel(0, x)) + div(stored * 10, m_weight));
        const bool isWhite = v >= m_threshold;
        row.set(0, x, isWhite ? 1 : 0);
        spread(v - (isWhite ? 255 : 0), x, row);
    }
    std::rotate(m_lines.begin(), m_lines.begin() + 1, m_lines.end());
    std::ranges::fill(m_lines.back(), 0);
}

void Stucki::spread(int error, int x, const RowBand& row) {
    const int eight = 8 * error / 42;
    const int four = 4 * error / 42;
    const int two = 2 * error / 42;
    const int one = error / 42;
    if (x < m_width - 2) add(0, x + 1, eight);
    if (x < m_width - 3) add(0, x + 2, four);
    if (row.firstRow() < row.height() - 2) spreadAbove(1, x, eight, four, two);
    if (row.firstRow() < row.height() - 3) spreadAbove(2, x, four, two, one);
}

void Stucki::spreadAbove(std::size_t line, int x, int own, int beside, int far) {
    if (x > 1) add(line, x - 2, far);
    if (x > 0) add(line, x - 1, beside);
    add(line, x, own);
    if (x < m_width - 2) add(line, x + 1, beside);
    if (x < m_width - 3) add(line, x + 2, far);
}

}  // namespace mobrel
