// SPDX-License-Identifier: MIT
// A band of rows laid aslant, so that a vector holds one pixel of each row.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "imaging/WaveTiles.hpp"
#include "imaging/cDIB.hpp"

namespace mobrel {

/// What a reduced pixel becomes: the four bytes of its index, and these bits of what it was.
struct Paint {
    std::array<std::uint32_t, 256> colours{};
    std::uint32_t kept = 0;
};

/// Error diffusion goes through a picture in waves: at step t the band's row j, of memory rows from the
/// bottom, is at column t - kLag (j + 1), where all errors that concern it are known. Row -1, the last one of
/// the band before, would be at column t. The steps pass by in blocks that stay in the fastest memory; the
/// last block may go on beyond the last step.
class WaveBand {
 public:
    static constexpr int kLag = kTileSide;
    static constexpr int kMostRows = 16;
    /// A band that follows so many steps behind another finds what it hands over.
    static constexpr int kBlock = kLag * kMostRows;
    /// Steps behind the last pixel, in which its shares come to the end of their way.
    static constexpr int kTail = 2;

    WaveBand(cDIB& DIB, const Paint& paint);

    /// Goes to the rows from y, `most` (1 to kMostRows) of them at most.
    void select(int y, int most);

    int width() const { return m_width; }
    int height() const { return m_height; }
    int firstRow() const { return m_first; }
    int rows() const { return m_rows; }
    /// How many blocks lead through the band.
    int blocks() const { return (m_width + kLag * m_rows + kTail + kBlock - 1) / kBlock; }

    /// Pixel x of row j, which may be the one after the band if the picture has it.
    std::uint8_t* pixel(int row, int x) const {
        return m_pixels + (std::ptrdiff_t{m_first + row} * m_width + x) * 4;
    }
    /// The indices of row j, one a byte, when all of its pixels are reduced.
    std::uint8_t* indices(int row) { return m_indices.data() + std::ptrdiff_t{row} * m_width; }
    /// Makes pixel x of row j that of an index.
    void set(int row, int x, std::uint8_t index);

    /// Brings the pixels of kBlock steps from `step`, a multiple of it, to the block. What is beside the
    /// picture is undefined.
    void load(int step);
    /// Takes the pixels of these steps from the block, as colours with their indices above.
    void store(int step);

    /// Row j of each step of the block, kMostRows to a step.
    std::uint32_t* block() { return m_block.data(); }

 private:
    /// A range of a block's steps.
    struct Steps {
        int from;
        int to;
    };
    static int column(int row, int step) { return step - kLag * (row + 1); }
    std::uint32_t* slot(int row, int step) { return m_block.data() + std::ptrdiff_t{step} * kMostRows + row; }
    /// The steps in which all of four rows are at whole tiles within the picture.
    Steps tiled(int row, int step) const;
    TileRows tilesAt(int row, int step);
    void loadPlainly(int row, int step, Steps steps);
    void storePlainly(int row, int step, Steps steps);
    void setByte3(int row, int step, Steps tiles);

    std::uint8_t* m_pixels;
    int m_width;
    int m_height;
    int m_first = 0;
    int m_rows = 0;
    const Paint& m_paint;
    bool m_paintsByte3;
    std::vector<std::uint8_t> m_indices;
    alignas(64) std::array<std::uint32_t, std::size_t{kBlock} * kMostRows> m_block{};
};

}  // namespace mobrel
