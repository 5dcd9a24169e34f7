// SPDX-License-Identifier: MIT
// From the indices of a GIF frame to a picture with a table.
#pragma once

#include <array>
#include <cstdint>

#include "platform/pictures/StdPicture.hpp"
#include "platform/pictures/codecs/GifFrame.hpp"

namespace mobrel {

/// Gives the picture its depth, colour table, index map and final pixels. Before, the pixels under the frame
/// have the frame's index in byte 3, with any colour. `isUsed` tells which indices the frame has, and
/// `background` is 0x00BBGGRR.
void applyGifPalette(StdPicture& picture, const GifFrame& frame, const std::array<bool, 256>& isUsed,
                     std::uint32_t background);

}  // namespace mobrel
