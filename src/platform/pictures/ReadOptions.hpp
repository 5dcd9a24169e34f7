// SPDX-License-Identifier: MIT
// What a reader of a picture format is told besides its bytes.
#pragma once

#include <cstdint>
#include <limits>

namespace mobrel {

struct ReadOptions {
    /// What shows through transparent pixels, 0x00BBGGRR.
    std::uint32_t background = 0;
    /// Pictures of more pixels are refused by their header, before memory is taken for them.
    std::uint64_t maxPixels = std::numeric_limits<std::uint64_t>::max();
};

/// Throws PictureError for a size, as a header tells it, that no surface can hold or that has more pixels
/// than the options allow. To be called before any memory is taken. Sides of up to 2^31.
void checkPictureSize(std::int64_t width, std::int64_t height, const ReadOptions& options);

}  // namespace mobrel
