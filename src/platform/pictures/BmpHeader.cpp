// SPDX-License-Identifier: MIT
// Reads and judges the headers of a bitmap file.
#include "platform/pictures/BmpHeader.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <string>

#include "platform/drawing/PixelBuffer.hpp"
#include "platform/pictures/LittleEndian.hpp"

namespace mobrel {

namespace {

constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::array<std::uint32_t, 6> kHeaderSizes{kCoreHeader, kInfoHeader, 52, 56, 108, 124};

// Values of the compression field.
constexpr std::uint32_t kRgb = 0;
constexpr std::uint32_t kRle8 = 1;
constexpr std::uint32_t kRle4 = 2;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kAlphaBitFields = 6;

// The fields of an information header as the file has them.
struct Fields {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::uint16_t planes = 0;
    std::uint16_t bits = 0;
    std::uint32_t compression = kRgb;
    std::uint32_t colorsUsed = 0;
    std::size_t entryBytes = 4;
    BmpMasks masks;
};

const std::uint8_t* takeHeader(BufferedSource& input, std::size_t count) {
    const std::uint8_t* bytes = input.take(count);
    if (bytes == nullptr) throw PictureError("the file ends in its headers");
    return bytes;
}

// Gives the offset of the pixels.
std::uint32_t readFileHeader(BufferedSource& input) {
    const std::uint8_t* letters = input.take(2);
    if (letters == nullptr || letters[0] != 'B' || letters[1] != 'M') throw PictureError("not a BMP file");
    return loadU32(takeHeader(input, 12) + 8);
}

BmpMasks loadMasks(const std::uint8_t* bytes) {
    return {loadU32(bytes), loadU32(bytes + 4), loadU32(bytes + 8)};
}

Fields readCoreFields(BufferedSource& input) {
    const std::uint8_t* bytes = takeHeader(input, kCoreHeader - 4);
    Fields fields;
    fields.width = loadU16(bytes);
    fields.height = loadU16(bytes + 2);
    fields.planes = loadU16(bytes + 4);
    fields.bits = loadU16(bytes + 6);
    fields.entryBytes = 3;
    return fields;
}

// The larger headers begin as the one of 40 bytes does, and hold the masks that else follow it.
Fields readInfoFields(BufferedSource& input, std::uint32_t headerSize) {
    const std::uint8_t* bytes = takeHeader(input, headerSize - 4);
    Fields fields;
    fields.width = loadI32(bytes);
    fields.height = loadI32(bytes + 4);
    fields.planes = loadU16(bytes + 8);
    fields.bits = loadU16(bytes + 10);
    fields.compression = loadU32(bytes + 12);
    fields.colorsUsed = loadU32(bytes + 28);
    if (headerSize > kInfoHeader) {
        fields.masks = loadMasks(bytes + 36);
    } else if (fields.compression == kBitFields) {
        fields.masks = loadMasks(takeHeader(input, 12));
    } else if (fields.compression == kAlphaBitFields) {
        fields.masks = loadMasks(takeHeader(input, 16));
    }
    return fields;
}

Fields readFields(BufferedSource& input) {
    const std::uint32_t headerSize = loadU32(takeHeader(input, 4));
    if (std::ranges::find(kHeaderSizes, headerSize) == kHeaderSizes.end()) {
        throw PictureError("a header of " + std::to_string(headerSize) + " bytes is not supported");
    }
    return headerSize == kCoreHeader ? readCoreFields(input) : readInfoFields(input, headerSize);
}

bool isDepth(int bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

bool fitsDepth(std::uint32_t compression, int bits) {
    switch (compression) {
        case kRgb:
            return true;
        case kRle8:
            return bits == 8;
        case kRle4:
            return bits == 4;
        default:
            return bits == 16 || bits == 32;
    }
}

void checkFormat(const Fields& fields) {
    if (fields.planes != 1) {
        throw PictureError(std::to_string(fields.planes) + " colour planes are not supported");
    }
    if (fields.compression > kBitFields && fields.compression != kAlphaBitFields) {
        throw PictureError("compression " + std::to_string(fields.compression) + " is not supported");
    }
    if (!isDepth(fields.bits)) {
        throw PictureError("a depth of " + std::to_string(fields.bits) + " bits is not supported");
    }
    if (!fitsDepth(fields.compression, fields.bits)) {
        throw PictureError("compression " + std::to_string(fields.compression) + " does not go with " +
                           std::to_string(fields.bits) + " bits");
    }
}

void checkSize(const Fields& fields) {
    if (fields.width < 1) {
        throw PictureError("a width of " + std::to_string(fields.width) + " is not possible");
    }
    if (fields.height == 0) throw PictureError("a height of 0 is not possible");
    const std::int64_t rows = std::abs(fields.height);
    if (!PixelBuffer::isValidSize(fields.width, rows)) {
        throw PictureError(std::to_string(fields.width) + " x " + std::to_string(rows) +
                           " pixels are more than a picture can have");
    }
    const bool runLength = fields.compression == kRle8 || fields.compression == kRle4;
    if (runLength && fields.height < 0) throw PictureError("run-length codes cannot start with the top row");
}

// The masks of a 16- or 32-bit picture, checked where the file names them.
BmpMasks masksOf(const Fields& fields) {
    if (fields.compression == kRgb) return fields.bits == 16 ? kMasks555 : kMasks888;
    const BmpMasks& masks = fields.masks;
    for (const std::uint32_t mask : {masks.red, masks.green, masks.blue}) {
        if (mask == 0) continue;
        const std::uint32_t ones = mask >> std::countr_zero(mask);
        if ((ones & (ones + 1)) != 0) throw PictureError("a colour mask has gaps");
        if (fields.bits == 16 && mask > 0xFFFF) throw PictureError("a colour mask is wider than a pixel");
    }
    const std::uint32_t shared =
        (masks.red & masks.green) | (masks.red & masks.blue) | (masks.green & masks.blue);
    if (shared != 0) throw PictureError("the colour masks overlap");
    return masks;
}

// The table has the entries that the header tells of, up to 2^bits, as far as they fit before the pixels.
std::vector<RgbQuad> readColorTable(BufferedSource& input, const Fields& fields, std::uint32_t pixelOffset) {
    const std::uint32_t most = 1U << fields.bits;
    std::uint64_t count = fields.colorsUsed == 0 ? most : std::min(fields.colorsUsed, most);
    if (pixelOffset >= input.position()) {
        count = std::min(count, (pixelOffset - input.position()) / fields.entryBytes);
    }
    const std::uint8_t* entry = input.take(static_cast<std::size_t>(count) * fields.entryBytes);
    if (entry == nullptr) throw PictureError("the file ends in its colour table");

    std::vector<RgbQuad> table(most);
    for (std::size_t i = 0; i < count; ++i, entry += fields.entryBytes) {
        table[i] = {entry[0], entry[1], entry[2], 0};
    }
    return table;
}

BmpCoding codingOf(std::uint32_t compression) {
    if (compression == kRle8) return BmpCoding::Rle8;
    if (compression == kRle4) return BmpCoding::Rle4;
    return BmpCoding::Rows;
}

}  // namespace

BmpHeader readBmpHeader(BufferedSource& input) {
    const std::uint32_t pixelOffset = readFileHeader(input);
    const Fields fields = readFields(input);
    checkFormat(fields);
    checkSize(fields);

    BmpHeader header;
    header.width = static_cast<int>(fields.width);
    header.height = static_cast<int>(std::abs(fields.height));
    header.topDown = fields.height < 0;
    header.bits = fields.bits;
    header.coding = codingOf(fields.compression);
    if (header.bits < 9) header.colorTable = readColorTable(input, fields, pixelOffset);
    if (header.bits == 16 || header.bits == 32) header.masks = masksOf(fields);

    if (pixelOffset > input.position() && !input.skip(pixelOffset - input.position())) {
        throw PictureError("the file ends before its pixels");
    }
    return header;
}

}  // namespace mobrel
