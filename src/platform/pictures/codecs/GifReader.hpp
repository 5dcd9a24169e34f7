// SPDX-License-Identifier: MIT
// Reads GIF files.
#pragma once

#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Reads the first frame of a GIF from the source, from the file's first byte, in its place on the logical
/// screen; a screen too small for the frame is taken as large enough. The result has a table: its depth is
/// 1, 4 or 8, the next of a BMP's that holds the frame's colours.
///
/// Transparent pixels, and what the frame leaves of the screen, have the colour of the background. It takes
/// the entry of the transparent index, else an equal one, else one that no pixel uses; where all 256 are
/// used, the nearest stands in for what the frame leaves.
///
/// Throws PictureError when the file is no GIF, is cut short or damaged, or asks for a picture that no
/// surface can hold or that is larger than the options allow; what the source throws; std::bad_alloc when
/// memory is short. Memory is used up only as bytes arrive.
///
/// Source of the format: CompuServe, "Graphics Interchange Format, Version 89a".
StdPicture readGif(BufferedSource& source, const ReadOptions& options = {});

}  // namespace mobrel
