// SPDX-License-Identifier: MIT
// What the methods of error diffusion have in common: the rows they work on and the way through a picture.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "imaging/cDIB.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel {

/// What a reduced pixel becomes: the four bytes of its index, and these bits of what it was.
struct Paint {
    std::array<std::uint32_t, 256> colours{};
    std::uint32_t kept = 0;
};

/// Some rows of a picture while they are reduced: memory rows, counted from the bottom.
class RowBand {
 public:
    /// Has room for `mostRows` rows, and is at none.
    RowBand(cDIB& DIB, const Paint& paint, int mostRows);

    /// Goes to the rows from y: as many as there is room for and as the picture has.
    void select(int y);

    int width() const { return m_width; }
    int height() const { return m_height; }
    int firstRow() const { return m_first; }
    int rows() const { return m_rows; }
    const Paint& paint() const { return m_paint; }
    /// Whether a colour of the paint has bits in byte 3.
    bool paintsByte3() const { return m_paintsByte3; }

    /// Pixel x of row j, which may be the one after the band if the picture has it.
    std::uint8_t* pixel(int row, int x) const {
        return m_pixels + (std::ptrdiff_t{m_first + row} * m_width + x) * 4;
    }
    /// The indices of row j, one a byte, when all of its pixels are reduced.
    std::uint8_t* indices(int row) { return m_indices.data() + std::ptrdiff_t{row} * m_width; }
    /// Makes pixel x of row j that of an index.
    void set(int row, int x, std::uint8_t index);

 private:
    std::uint8_t* m_pixels;
    int m_width;
    int m_height;
    int m_mostRows;
    int m_first = 0;
    int m_rows = 0;
    const Paint& m_paint;
    bool m_paintsByte3;
    std::vector<std::uint8_t> m_indices;
};

/// Called for each row, from the bottom, when it is reduced, with its indices, one a byte.
using RowDone = std::function<void(int y, const std::uint8_t* indices)>;

/// Reduces a picture row by row, which reduceRow does for a band of one row.
void reduceRows(cDIB& DIB, const Paint& paint, const std::function<void(RowBand&)>& reduceRow,
                const RowDone& rowDone);

/// Reduces a picture by error diffusion. On a processor without vectors `reduceRow` does that pixel by pixel
/// for a band of one row. Otherwise `reduceBands` does it in wavefronts, for a band of wavefrontRows() rows
/// or for two of them that follow each other; only the last band of a picture may have fewer rows.
void diffuse(cDIB& DIB, const Paint& paint, const std::function<void(RowBand&)>& reduceRow,
             const std::function<void(std::span<RowBand>)>& reduceBands, const RowDone& rowDone);

/// How many rows a wavefront takes on this processor; 0 without vectors.
extern const VectorKernel<int()> wavefrontRows;

/// A wavefront holds one pixel of each row of a band. Each row follows kLag columns behind the one before it,
/// so that all errors that concern a pixel are known when the wavefront comes to it: at step t row j is at
/// column t - kLag (j + 1). Row -1 is the last one of the band before. A slot holds the pixels of one step:
///
///     step         0   1   2   3   4   5   6   7   8   9  10  11  12  13
///
///     row 2                                                        0   1
///     row 1                                        0   1   2   3   4   5
///     row 0                        0   1   2   3   4   5   6   7   8   9
///     row -1       0   1   2   3   4   5   6   7   8   9  10  11  12  13
///                                                          |
///                                                          slot 10
///
/// The steps pass by in blocks of slots that stay in the fastest memory; the last block may go on beyond the
/// last step.
namespace wavefront {

inline constexpr int kLag = 4;
inline constexpr int kMostRows = 16;
/// A band that follows so many steps behind another finds the errors that it hands on.
inline constexpr int kBlock = kLag * kMostRows;
/// Steps behind the last pixel, in which its shares come to the end of their way.
inline constexpr int kTail = 2;

}  // namespace wavefront

/// The errors that the last row of a band carries to the next band: two values for each step. None at first.
template <typename Value>
struct CarriedErrors {
    explicit CarriedErrors(int width)
        : first(static_cast<std::size_t>(width) + 3 * wavefront::kBlock + wavefront::kTail),
          second(first.size()) {}

    std::vector<Value> first;
    std::vector<Value> second;
};

}  // namespace mobrel
