// SPDX-License-Identifier: MIT
// Writes GIF files.
#pragma once

#include <cstdint>
#include <span>

#include "platform/Files.hpp"
#include "platform/StdPicture.hpp"

namespace mobrel {

/// A picture of one index a pixel.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    /// 1 to 256 entries.
    std::span<const RgbQuad> colorTable;
    /// One byte a pixel, top line first, rows of `width` bytes.
    std::span<const std::uint8_t> indices;
};

/// Writes the picture as the one frame of a file. Sides of more than 65,535 pixels are error 5. Throws as
/// FileWriter does.
void writeGif(FileWriter& file, const IndexedPicture& picture);

}  // namespace mobrel
