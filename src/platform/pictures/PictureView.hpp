// SPDX-License-Identifier: MIT
// Pixels that somebody else owns, for the writers of picture files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// Lines of 4 bytes a pixel (blue, green, red, unused), in either order in memory.
struct PictureView {
    /// The first byte of the top line.
    const std::uint8_t* top = nullptr;
    /// From a line to the one below it; negative where the rows go up.
    std::ptrdiff_t stride = 0;
    int width = 0;
    int height = 0;

    /// Line y, counted from the top.
    const std::uint8_t* line(int y) const noexcept { return top + y * stride; }
};

/// A picture of one index a pixel.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    /// 1 to 256 entries.
    std::span<const RgbQuad> colorTable;
    /// One byte a pixel, top line first, rows of `width` bytes.
    std::span<const std::uint8_t> indices;
};

}  // namespace mobrel
