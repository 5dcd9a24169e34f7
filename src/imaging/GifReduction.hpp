// SPDX-License-Identifier: MIT
// Makes a picture one of at most 256 colours, for files that can have no more.
#pragma once

#include <cstdint>
#include <vector>

#include "imaging/cDIB.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// One index a pixel, top line first, rows of the picture's width.
struct ReducedPicture {
    std::vector<RgbQuad> colorTable;
    std::vector<std::uint8_t> indices;
};

/// A live surface's picture in its own colours where these are at most 256, in the order in which they
/// come from the top left. Otherwise in 256 colours fitted to the picture, the errors diffused with Floyd
/// and Steinberg's kernel. std::bad_alloc when memory is short.
ReducedPicture reduceForGif(const cDIB& DIB);

}  // namespace mobrel
