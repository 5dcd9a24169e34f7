// SPDX-License-Identifier: MIT
// What stands in a bitmap file before its pixels: headers, bit masks, colour table.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// How the pixels of a bitmap file are written.
enum class BmpCoding { Rows, Rle8, Rle4 };

/// The bits of a 16- or 32-bit pixel that hold a channel: one run of ones, or 0 for a channel without.
struct BmpMasks {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;

    bool operator==(const BmpMasks&) const = default;
};

/// The masks of 32-bit pixels that name none.
inline constexpr BmpMasks kMasks888{0xFF0000, 0x00FF00, 0x0000FF};
/// The masks of 16-bit pixels that name none.
inline constexpr BmpMasks kMasks555{0x7C00, 0x03E0, 0x001F};

/// A header that was found good: everything in it can be relied on.
struct BmpHeader {
    /// A size that PixelBuffer::isValidSize() allows.
    int width = 0;
    int height = 0;
    /// True when the top row stands first in the file; never with a run-length coding.
    bool topDown = false;
    /// 1, 4, 8, 16, 24 or 32.
    int bits = 24;
    BmpCoding coding = BmpCoding::Rows;
    /// Set for 16 and 32 bits.
    BmpMasks masks;
    /// 2^bits entries for up to 8 bits, else empty. Entries that the file lacks are black.
    std::vector<RgbQuad> colorTable;
};

/// Reads up to the first byte of the pixels. Throws PictureError for a file that is no BMP, is cut short,
/// is of a kind that is not read, or has a size that no surface can hold.
///
/// The file's size in its header is not looked at. An offset of the pixels that points into the headers is
/// taken as unset: they then follow the colour table. One that points into the room of the colour table
/// makes the table shorter.
BmpHeader readBmpHeader(BufferedSource& input);

}  // namespace mobrel
