// SPDX-License-Identifier: MIT
// Follows run-length codes with a pen.
#include "platform/pictures/BmpRle.hpp"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/pictures/BmpPixels.hpp"
#include "platform/pictures/BmpRows.hpp"

namespace mobrel {

namespace {

constexpr int kLongest = 255;

// What follows a 0 in place of a run's length; larger numbers count pixels written one by one.
constexpr std::uint8_t kEndOfRow = 0;
constexpr std::uint8_t kEndOfBitmap = 1;
constexpr std::uint8_t kDelta = 2;

// Follows the codes and writes packed indices to the front of each pixel row. That memory is zero and
// costs nothing until a code writes to it, however large the picture claims to be; packed rows are never
// longer than pixel rows.
class RlePen {
 public:
    RlePen(BufferedSource& input, const BmpHeader& header, PixelBuffer& canvas)
        : m_input(input), m_header(header), m_canvas(canvas) {}

    void follow() {
        while (const std::uint8_t* code = m_input.take(2)) {
            const std::uint8_t count = code[0];
            const std::uint8_t value = code[1];
            if (count > 0) {
                run(count, value);
            } else if (value == kEndOfBitmap) {
                return;
            } else if (value == kEndOfRow) {
                endRow();
            } else if (value == kDelta) {
                delta();
            } else {
                literals(value);
            }
        }
        requireComplete();
    }

 private:
    void run(int count, std::uint8_t value) {
        requireRoom(count);
        std::uint8_t* row = m_canvas.row(m_row);
        if (m_header.coding == BmpCoding::Rle8) {
            std::memset(row + m_column, value, static_cast<std::size_t>(count));
        } else {
            const int column = m_column;
            for (int i = 0; i < count; ++i) putNibble(row, column + i, nibble(value, i));
        }
        m_column += count;
    }

    void literals(int count) {
        requireRoom(count);
        const bool isRle8 = m_header.coding == BmpCoding::Rle8;
        const auto bytes = static_cast<std::size_t>(isRle8 ? count : (count + 1) / 2);
        const std::uint8_t* values = m_input.take(bytes);
        if (values == nullptr) failInRow(m_row, m_header);
        std::uint8_t* row = m_canvas.row(m_row);
        if (isRle8) {
            std::memcpy(row + m_column, values, bytes);
        } else {
            const int column = m_column;
            for (int i = 0; i < count; ++i) putNibble(row, column + i, nibble(values[i / 2], i));
        }
        m_column += count;
        m_input.skip(bytes % 2);  // a file that lacks this byte lacks the next code as well
    }

    // The even pixels of a code are in the high half of its bytes.
    static int nibble(std::uint8_t pair, int i) { return i % 2 == 0 ? pair >> 4 : pair & 15; }

    // The pixel is still 0: the pen never goes back.
    static void putNibble(std::uint8_t* row, int column, int index) {
        row[column / 2] = static_cast<std::uint8_t>(row[column / 2] | (column % 2 == 0 ? index << 4 : index));
    }

    void endRow() {
        requireRoom(0);
        m_column = 0;
        ++m_row;
    }

    void delta() {
        requireRoom(0);
        const std::uint8_t* step = m_input.take(2);
        if (step == nullptr) failInRow(m_row, m_header);
        m_column += step[0];
        m_row += step[1];
        if (m_column > m_header.width || m_row >= m_header.height) {
            throw PictureError("a delta code leaves the picture");
        }
    }

    // The pen may stand behind the last pixel of a row, and behind the last row, but not go on from there.
    void requireRoom(int count) const {
        if (m_row == m_header.height) throw PictureError("the run-length codes go on behind the last row");
        if (count > m_header.width - m_column) {
            throw PictureError("the run-length codes leave row " + std::to_string(m_row + 1) + " of " +
                               std::to_string(m_header.height));
        }
    }

    // Codes without an end of bitmap are whole when they end with the last row.
    void requireComplete() const {
        if (m_row == m_header.height) return;
        if (m_row < m_header.height - 1 || m_column < m_header.width) failInRow(m_row, m_header);
    }

    BufferedSource& m_input;
    const BmpHeader& m_header;
    PixelBuffer& m_canvas;
    int m_column = 0;
    int m_row = 0;  // in the order of the file: bottom row first
};

}  // namespace

void checkRleReach(const BmpHeader& header, std::uint64_t codeBytes) {
    constexpr std::uint64_t kFree = 1 << 20;
    const auto pixels = static_cast<std::uint64_t>(header.width) * static_cast<std::uint64_t>(header.height);
    if (pixels > kFree && pixels > (codeBytes + 1) / 2 * kLongest) {
        throw PictureError(std::to_string(codeBytes) + " bytes of run-length codes cannot fill " +
                           std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels");
    }
}

void readRleRows(BufferedSource& input, const BmpHeader& header, StdPicture& picture) {
    const std::uint64_t start = input.position();
    RlePen(input, header, picture.pixels).follow();
    checkRleReach(header, input.position() - start);

    const BmpPixels pixels(header);
    const auto stride = static_cast<std::size_t>(packedStride(header.width, header.bits));
    picture.indices.resize(stride * static_cast<std::size_t>(header.height));
    std::uint8_t* packed = picture.indices.data();
    for (int row = 0; row < header.height; ++row, packed += stride) {
        std::memcpy(packed, picture.pixels.row(row), stride);
        pixels.expand(packed, header.width, picture.pixels.row(row));
    }
}

}  // namespace mobrel
