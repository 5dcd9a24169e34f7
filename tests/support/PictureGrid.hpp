// SPDX-License-Identifier: MIT
// A small picture for tests: written as rows of letters or numbers, compared and printed the same way.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel::test {

/// A picture in its own memory, with guard bytes before and behind it. A pixel is read and written as
/// one number, 0xUURRGGBB (byte 3, red, green, blue); lines count from the top whatever the row order.
class PictureGrid {
 public:
    /// A picture of zeros.
    PictureGrid(int width, int height, RowOrder order = RowOrder::TopDown)
        : m_width(width),
          m_height(height),
          m_order(order),
          m_memory(2 * kGuardBytes + static_cast<std::size_t>(width * height) * 4) {
        std::fill_n(m_memory.begin(), kGuardBytes, kGuard);
        std::fill_n(m_memory.rbegin(), kGuardBytes, kGuard);
    }

    /// A picture of one letter a pixel. `colors` gives single letters another value.
    static PictureGrid fromLetters(const std::vector<std::string>& rows, RowOrder order = RowOrder::TopDown,
                                   const std::map<char, std::uint32_t>& colors = {}) {
        PictureGrid grid(static_cast<int>(rows.at(0).size()), static_cast<int>(rows.size()), order);
        grid.fill([&](int x, int y) {
            const char letter = rows[static_cast<std::size_t>(y)].at(static_cast<std::size_t>(x));
            const auto found = colors.find(letter);
            return found == colors.end() ? letterPixel(letter) : found->second;
        });
        return grid;
    }

    /// A picture of pixel values.
    static PictureGrid fromNumbers(const std::vector<std::vector<std::uint32_t>>& rows,
                                   RowOrder order = RowOrder::TopDown) {
        PictureGrid grid(static_cast<int>(rows.at(0).size()), static_cast<int>(rows.size()), order);
        grid.fill(
            [&](int x, int y) { return rows[static_cast<std::size_t>(y)].at(static_cast<std::size_t>(x)); });
        return grid;
    }

    /// A picture whose pixels all differ, and differ from any letter: `base` plus the pixel's number.
    static PictureGrid numbered(int width, int height, RowOrder order = RowOrder::TopDown,
                                std::uint32_t base = 0x80402000) {
        PictureGrid grid(width, height, order);
        grid.fill([&](int x, int y) { return base + static_cast<std::uint32_t>(y * width + x); });
        return grid;
    }

    /// The value of a letter: four different bytes, and 0 for a dot.
    static constexpr std::uint32_t letterPixel(char letter) {
        return letter == '.' ? 0 : 0x03020100U + 0x01010101U * static_cast<std::uint32_t>(letter);
    }

    int width() const { return m_width; }
    int height() const { return m_height; }
    RowOrder order() const { return m_order; }
    /// The first byte of the picture, rows in memory order.
    std::uint8_t* bits() { return m_memory.data() + kGuardBytes; }
    const std::uint8_t* bits() const { return m_memory.data() + kGuardBytes; }
    DeviceContext context() { return {bits(), m_width, m_height, m_order}; }

    std::uint32_t at(int x, int y) const {
        const std::uint8_t* p = bits() + offset(x, y);
        return static_cast<std::uint32_t>(p[0] | p[1] << 8 | p[2] << 16) | static_cast<std::uint32_t>(p[3])
                                                                               << 24;
    }
    void set(int x, int y, std::uint32_t value) {
        for (int byte = 0; byte < 4; ++byte) {
            bits()[offset(x, y) + static_cast<std::size_t>(byte)] =
                static_cast<std::uint8_t>(value >> (8 * byte));
        }
    }

    /// Sets every pixel to pixelOf(x, y).
    template <typename PixelOf>
    void fill(PixelOf&& pixelOf) {
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) set(x, y, pixelOf(x, y));
        }
    }

    /// True while nothing has been written beside the picture.
    bool isGuardIntact() const {
        const auto isGuard = [](std::uint8_t byte) { return byte == kGuard; };
        return std::all_of(m_memory.begin(), m_memory.begin() + kGuardBytes, isGuard) &&
               std::all_of(m_memory.rbegin(), m_memory.rbegin() + kGuardBytes, isGuard);
    }

    /// Equal when both show the same picture, in any row order, and neither guard is overwritten.
    bool operator==(const PictureGrid& other) const {
        if (m_width != other.m_width || m_height != other.m_height) return false;
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                if (at(x, y) != other.at(x, y)) return false;
            }
        }
        return isGuardIntact() && other.isGuardIntact();
    }

    /// One row a line: letters where every pixel is one, else hexadecimal values.
    std::string toString() const {
        std::string letters;
        std::string numbers;
        bool isAllLetters = true;
        for (int y = 0; y < m_height; ++y) {
            for (int x = 0; x < m_width; ++x) {
                const char letter = at(x, y) == 0 ? '.' : static_cast<char>(at(x, y) & 0x7F);
                isAllLetters = isAllLetters && letterPixel(letter) == at(x, y);
                letters += letter;
                char number[16];
                std::snprintf(number, sizeof number, "%08x ", at(x, y));
                numbers += number;
            }
            letters += '\n';
            numbers += '\n';
        }
        return (isAllLetters ? letters : numbers) +
               (isGuardIntact() ? "" : "(memory beside it overwritten)\n");
    }

    /// How a failed comparison shows the picture.
    friend void PrintTo(const PictureGrid& grid, std::ostream* out) { *out << '\n' << grid.toString(); }

 private:
    static constexpr std::size_t kGuardBytes = 64;
    static constexpr std::uint8_t kGuard = 0xA5;

    std::size_t offset(int x, int y) const {
        const int row = m_order == RowOrder::TopDown ? y : m_height - 1 - y;
        return static_cast<std::size_t>(row * m_width + x) * 4;
    }

    int m_width;
    int m_height;
    RowOrder m_order;
    std::vector<std::uint8_t> m_memory;
};

}  // namespace mobrel::test
