// SPDX-License-Identifier: MIT
// A band of rows laid aslant, so that a vector holds one pixel of each row.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "imaging/cDIB.hpp"

namespace mobrel {

/// What a reduced pixel becomes: the colour of its index, and these bytes of what it was.
struct Paint {
    std::array<std::uint32_t, 256> colours{};
    std::uint32_t kept = 0;
};

/// Error diffusion goes through a picture in waves: at step t the band's row j, of memory rows from the
/// bottom, is at column t - kLag (j + 1), where all errors that concern it are known. Row -1, the last one of
/// the band before, would be at column t. The steps pass by in blocks that stay in the fastest memory.
class WaveBand {
 public:
    static constexpr int kLag = 4;
    static constexpr int kMostRows = 16;
    static constexpr int kBlock = 64;
    /// Steps behind the last pixel, in which its shares come to the end of their way.
    static constexpr int kTail = 2;

    WaveBand(cDIB& DIB, const Paint& paint);

    /// Goes to the rows from y, `most` (1 to kMostRows) of them at most.
    void select(int y, int most);

    int width() const { return m_width; }
    int height() const { return m_height; }
    int firstRow() const { return m_first; }
    int rows() const { return m_rows; }
    /// How many steps lead through the band.
    int steps() const { return m_width + kLag * m_rows + kTail; }

    /// Pixel x of row j, which may be the one after the band if the picture has it.
    std::uint8_t* pixel(int row, int x) const {
        return m_pixels + (std::ptrdiff_t{m_first + row} * m_width + x) * 4;
    }
    /// Makes pixel x of row j that of an index.
    void set(int row, int x, std::uint8_t index) { paint(pixel(row, x), indices(row)[x], index); }

    /// Brings the pixels of kBlock steps from `step` to the block. What is beside the picture is undefined.
    void load(int step);
    /// Paints the pixels of these steps by the indices that the block holds in its highest bytes.
    void store(int step);

    /// Row j of each step of the block, kMostRows to a step.
    std::uint32_t* block() { return m_block.data(); }

    /// The indices of row j, one a byte, when all of its pixels are reduced.
    std::uint8_t* indices(int row) { return m_indices.data() + std::ptrdiff_t{row} * m_width; }

 private:
    /// The columns of a row that a block holds, and where the first one stands.
    struct Part {
        std::uint8_t* pixels;
        std::uint8_t* indices;
        std::uint32_t* slot;
        int count;
    };
    Part part(int row, int step);
    void paint(std::uint8_t* pixel, std::uint8_t& stored, std::uint8_t index) const {
        std::uint32_t value = 0;
        std::memcpy(&value, pixel, 4);
        value = m_paint.colours[index] | (value & m_paint.kept);
        std::memcpy(pixel, &value, 4);
        stored = index;
    }

    std::uint8_t* m_pixels;
    int m_width;
    int m_height;
    int m_first = 0;
    int m_rows = 0;
    const Paint& m_paint;
    std::vector<std::uint8_t> m_indices;
    alignas(64) std::array<std::uint32_t, std::size_t{kBlock} * kMostRows> m_block{};
};

}  // namespace mobrel
