// SPDX-License-Identifier: MIT
// Writes GIF files.
#pragma once

#include "platform/pictures/PictureView.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// Writes the picture as the one frame of a file. Sides of more than 65,535 pixels are error 5. Throws as
/// FileWriter does.
void writeGif(FileWriter& file, const IndexedPicture& picture);

}  // namespace mobrel
