// SPDX-License-Identifier: MIT
// What --info tells of a picture, in the words of the properties window.
#pragma once

#include <cstdint>
#include <string>

#include "programs/batch/steps/Document.hpp"

namespace mobrel::batch {

struct PictureInfo {
    int width = 0;
    int height = 0;
    /// 1, 4, 8 or 24 bits.
    int depth = 0;
    /// "16 colors", "256 greys" ...
    std::string palette;
    std::int32_t colorsUsed = 0;
    /// Of an uncompressed BMP file of that depth.
    std::int32_t bitmapBytes = 0;
};

/// Looks at all pixels.
PictureInfo infoOf(const Document& document);

/// Six lines below the file's name.
std::string infoText(const std::string& file, const PictureInfo& info);

}  // namespace mobrel::batch
