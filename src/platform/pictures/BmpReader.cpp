// SPDX-License-Identifier: MIT
// Puts the parts of the reader together.
#include "platform/pictures/BmpReader.hpp"

#include <new>
#include <optional>
#include <utility>

#include "platform/pictures/BmpHeader.hpp"
#include "platform/pictures/BmpInput.hpp"
#include "platform/pictures/BmpRle.hpp"
#include "platform/pictures/BmpRows.hpp"

namespace mobrel {

namespace {

// The picture that the header promises, before its rows are read.
StdPicture blankPicture(const BmpHeader& header) {
    std::optional<PixelBuffer> pixels = PixelBuffer::create(header.width, header.height);
    if (!pixels) throw std::bad_alloc();
    StdPicture picture;
    picture.bitsPixel = header.bits;
    picture.colorTable = header.colorTable;
    picture.pixels = std::move(*pixels);
    return picture;
}

}  // namespace

StdPicture readBmp(ByteSource& source, const ReadOptions& options) {
    BmpInput input(source);
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
