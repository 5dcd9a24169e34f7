// SPDX-License-Identifier: MIT
// Reads the rows of a bitmap file piece by piece.
#include "platform/pictures/BmpRows.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/pictures/BmpPixels.hpp"

namespace mobrel {

namespace {

// Long rows are taken in pieces, which end at a byte for every depth.
constexpr int kPiecePixels = 8192;
static_assert(kPiecePixels % 8 == 0);

std::int64_t packedBytes(std::int64_t width, int bits) {
    return (width * bits + 7) / 8;
}

// Clears what a row's last byte holds behind the last pixel, and pads the row.
void closeIndexRow(std::vector<std::uint8_t>& indices, const BmpHeader& header) {
    const int unusedBits = static_cast<int>(packedBytes(header.width, header.bits) * 8 -
                                            std::int64_t{header.width} * header.bits);
    indices.back() = static_cast<std::uint8_t>(indices.back() >> unusedBits << unusedBits);
    indices.resize((indices.size() + 3) / 4 * 4);
}

void reverseRows(std::vector<std::uint8_t>& indices, const BmpHeader& header) {
    const auto stride = packedStride(header.width, header.bits);
    auto low = indices.begin();
    auto high = indices.end() - stride;
    for (; low < high; low += stride, high -= stride) std::swap_ranges(low, low + stride, high);
}

}  // namespace

void failInRow(std::int64_t row, const BmpHeader& header) {
    throw PictureError("the file ends in row " + std::to_string(row + 1) + " of " +
                       std::to_string(header.height));
}

void checkRowBytes(const BmpHeader& header, std::uint64_t available) {
    const std::int64_t stride = packedStride(header.width, header.bits);
    const std::int64_t needed = stride * (header.height - 1) + packedBytes(header.width, header.bits);
    if (available < static_cast<std::uint64_t>(needed)) {
        failInRow(static_cast<std::int64_t>(available) / stride, header);
    }
}

void readRows(BufferedSource& input, const BmpHeader& header, StdPicture& picture) {
    const BmpPixels pixels(header);
    const std::int64_t stride = packedStride(header.width, header.bits);
    const auto padding = static_cast<std::size_t>(stride - packedBytes(header.width, header.bits));
    const bool isIndexed = header.bits < 9;
    if (isIndexed && input.remaining()) {
        picture.indices.reserve(static_cast<std::size_t>(stride * header.height));
    }

    for (int row = 0; row < header.height; ++row) {
        std::uint8_t* out = picture.pixels.row(header.topDown ? header.height - 1 - row : row);
        for (int left = header.width; left > 0;) {
            const int count = std::min(left, kPiecePixels);
            const auto bytes = static_cast<std::size_t>(packedBytes(count, header.bits));
            const std::uint8_t* packed = input.take(bytes);
            if (packed == nullptr) failInRow(row, header);
            pixels.expand(packed, count, out);
            if (isIndexed) picture.indices.insert(picture.indices.end(), packed, packed + bytes);
            out += static_cast<std::ptrdiff_t>(count) * 4;
            left -= count;
        }
        if (isIndexed) closeIndexRow(picture.indices, header);
        const bool isLast = row == header.height - 1;
        if (!isLast && !input.skip(padding)) failInRow(row, header);
    }
    if (isIndexed && header.topDown) reverseRows(picture.indices, header);
}

}  // namespace mobrel
