// SPDX-License-Identifier: MIT
#include "platform/pictures/BmpWriter.hpp"

#include <algorithm>
#include <cstring>

#include "platform/drawing/rearrange_vectors.hpp"
#include "platform/pictures/LittleEndian.hpp"

namespace mobrel {

namespace {

// Drops byte 3 of every pixel.
void packRow(const std::uint8_t* from, std::size_t width, std::uint8_t* to) {
    for (std::size_t x = kernels::packPixels(from, width, to); x < width; ++x) {
        std::memcpy(to + x * 3, from + x * 4, 3);
    }
}

}  // namespace

std::vector<std::uint8_t> bmpHeaders(const BmpHeaderFields& fields) {
    const std::size_t tableBytes = fields.colorTable.size_bytes();
    std::vector<std::uint8_t> bytes(kBmpFileHeaderBytes + kBmpInfoHeaderBytes + tableBytes);
    std::uint8_t* const file = bytes.data();
    file[0] = 'B';
    file[1] = 'M';
    storeU32(file + 2, fields.fileBytes);
    storeU32(file + 10, static_cast<std::uint32_t>(bytes.size()));  // where the rows begin

    std::uint8_t* const info = file + kBmpFileHeaderBytes;
    storeU32(info, kBmpInfoHeaderBytes);
    storeU32(info + 4, static_cast<std::uint32_t>(fields.width));
    storeU32(info + 8, static_cast<std::uint32_t>(fields.height));
    storeU32(info + 12, 1 | static_cast<std::uint32_t>(fields.bits) << 16);  // planes, bits
    storeU32(info + 20, fields.rowBytes);
    if (tableBytes > 0) std::memcpy(info + kBmpInfoHeaderBytes, fields.colorTable.data(), tableBytes);
    return bytes;
}

void writeBmpRows(FileWriter& file, const PictureView& picture) {
    constexpr std::size_t kChunk = 128 * 1024;  // more than the writer gathers, less than the cache holds
    const auto stride = static_cast<std::size_t>(packedStride(picture.width, 24));
    const std::size_t rowsAtOnce = std::min(kChunk / stride + 1, static_cast<std::size_t>(picture.height));
    std::vector<std::uint8_t> rows(rowsAtOnce * stride);  // the padding stays zero

    std::size_t filled = 0;
    for (int y = picture.height - 1; y >= 0; --y) {
        const auto width = static_cast<std::size_t>(picture.width);
        packRow(picture.line(y), width, rows.data() + filled * stride);
        if (++filled == rowsAtOnce || y == 0) {
            file.write(std::span(rows).first(filled * stride));
            filled = 0;
        }
    }
}

}  // namespace mobrel
