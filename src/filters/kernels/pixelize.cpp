// SPDX-License-Identifier: MIT
#include "filters/kernels/pixelize.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "filters/kernels/pixelize_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// Pixels that are written at once.
constexpr int kCopied = 4;

/// Rows that are read at once; the sum of as many bytes fits 16 bits.
constexpr int kRowsAtOnce = 16;

/// The sum of each column of bytes over a few rows.
void sumColumns(const RowRange& rows, std::vector<std::uint16_t>& sums) {
    const auto rowBytes = static_cast<std::size_t>(rows.width) * 4;
    const auto count = static_cast<std::size_t>(rows.count);
    for (std::size_t i = sumRows(rows.first, rowBytes, count, sums.data()); i < rowBytes; ++i) {
        sums[i] = 0;
        for (int y = 0; y < rows.count; ++y) sums[i] = static_cast<std::uint16_t>(sums[i] + rows.row(y)[i]);
    }
}

}  // namespace

/// kept: a block of negative size holds no pixel, and its mean stays black.
BlockBand::BlockBand(int width, std::int32_t size)
    : m_width(width), m_size(std::min(size, width)), m_colours(static_cast<std::size_t>(width)) {
    if (size < 0) return;
    const int blocks = div(width - 1, m_size) + 1;
    m_columns.resize(static_cast<std::size_t>(width) * 4);
    m_sums.resize(static_cast<std::size_t>(blocks) * 4);
    m_means.resize(m_sums.size());
    m_colours.resize(static_cast<std::size_t>(blocks) * static_cast<std::size_t>(m_size) + kCopied - 1);
}

void BlockBand::measure(const RowRange& rows) {
    if (m_sums.empty()) return;
    std::fill(m_sums.begin(), m_sums.end(), 0);
    for (int y = 0; y < rows.count; y += kRowsAtOnce) {
        sumColumns({rows.row(y), rows.width, std::min(kRowsAtOnce, rows.count - y)}, m_columns);
        addColumns();
    }
    takeMeans(rows.count);
    spreadColours();
}

/// Adds the sums of columns to those of their blocks.
void BlockBand::addColumns() {
    const auto size = static_cast<std::size_t>(m_size);
    const auto width = static_cast<std::size_t>(m_width);
    const std::size_t blocks = addBlocks(m_columns.data(), width / size, size, m_sums.data());
    for (std::size_t x = blocks * size; x < width; ++x) {
        for (std::size_t c = 0; c < 4; ++c) m_sums[x / size * 4 + c] += m_columns[x * 4 + c];
    }
}

void BlockBand::takeMeans(int rows) {
    const int whole = m_width / m_size;
    std::size_t i = 0;
    if (std::int64_t{m_size} * rows <= kMostCount) {
        i = divideSums(m_sums.data(), static_cast<std::size_t>(whole) * 4, m_size * rows, m_means.data());
    }
    for (; i < m_sums.size(); ++i) {
        if (i % 4 == 3) continue;
        const int block = static_cast<int>(i / 4);
        const int count = std::min(m_size, m_width - block * m_size) * rows;
        m_means[i] = toByte(div(static_cast<std::int32_t>(m_sums[i]), count));
    }
}

void BlockBand::spreadColours() {
    const std::ptrdiff_t size = m_size;
    std::uint32_t* block = m_colours.data();
    for (std::size_t i = 0; i < m_means.size(); i += 4, block += size) {
        std::uint32_t colour = 0;
        std::memcpy(&colour, m_means.data() + i, 4);
        const std::array<std::uint32_t, kCopied> copies = {colour, colour, colour, colour};
        for (std::ptrdiff_t x = 0; x < size; x += kCopied) {
            std::memcpy(block + x, copies.data(), sizeof(copies));
        }
    }
}

void BlockBand::lay(std::uint8_t* row) const {
    const std::uint32_t* colour = m_colours.data();
    for (const std::uint8_t* const end = row + std::ptrdiff_t{m_width} * 4; row < end; row += 4, ++colour) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, row, 4);
        pixel = (pixel & 0xFF000000) | (*colour & 0x00FFFFFF);
        std::memcpy(row, &pixel, 4);
    }
}

}  // namespace mobrel::kernels
