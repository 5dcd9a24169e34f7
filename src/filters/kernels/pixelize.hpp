// SPDX-License-Identifier: MIT
// Pixelize: a band of square blocks, each in its mean colour.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mobrel::kernels {

/// Rows of a picture, one after the other, width x 4 bytes each.
struct RowRange {
    const std::uint8_t* first;
    int width;
    int count;

    const std::uint8_t* row(int y) const { return first + std::ptrdiff_t{y} * width * 4; }
};

/// The colours of a band: blocks of `size` columns from the left, the last one as wide as the picture
/// leaves it.
class BlockBand {
 public:
    /// Error 11 for size 0.
    BlockBand(int width, std::int32_t size);

    /// Takes the means of the blocks over these rows. Sums wrap at 32 bits; error 6 when a mean is no byte
    /// then.
    void measure(const RowRange& rows);

    /// Writes the colours to a row.
    void lay(std::uint8_t* row) const;

 private:
    void addColumns();
    void takeMeans(int rows);
    void spreadColours();

    int m_width;
    std::int32_t m_size;
    std::vector<std::uint16_t> m_columns;  // four a column
    std::vector<std::uint32_t> m_sums;     // four a block
    std::vector<std::uint8_t> m_means;     // four a block
    std::vector<std::uint32_t> m_colours;  // a row, and room for what copies overshoot
};

}  // namespace mobrel::kernels
