// SPDX-License-Identifier: MIT
// Puts the parts of the reader together.
#include "platform/pictures/BmpReader.hpp"

#include <optional>

#include "platform/pictures/BmpHeader.hpp"
#include "platform/pictures/BmpRle.hpp"
#include "platform/pictures/BmpRows.hpp"

namespace mobrel {

namespace {

// The picture that the header promises, before its rows are read.
StdPicture blankPicture(const BmpHeader& header) {
    StdPicture picture;
    picture.bitsPixel = header.bits;
    picture.colorTable = header.colorTable;
    picture.pixels = zeroedPixels(header.width, header.height);
    return picture;
}

}  // namespace

StdPicture readBmp(BufferedSource& input, const ReadOptions& options) {
    const BmpHeader header = readBmpHeader(input);
    checkPictureSize(header.width, header.height, options);
    const bool isRows = header.coding == BmpCoding::Rows;
    if (const std::optional<std::uint64_t> available = input.remaining()) {
        (isRows ? checkRowBytes : checkRleReach)(header, *available);
    }
    StdPicture picture = blankPicture(header);
    (isRows ? readRows : readRleRows)(input, header, picture);
    return picture;
}

}  // namespace mobrel
