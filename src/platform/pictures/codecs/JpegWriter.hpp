// SPDX-License-Identifier: MIT
// Writes JPEG files.
#pragma once

#include "platform/pictures/PictureView.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// Writes the picture with a quality of 0 to 100; values beyond count as the nearest of these. Sides of
/// more than 65,500 pixels are error 5. Throws as FileWriter does.
void writeJpeg(FileWriter& file, const PictureView& picture, int quality);

}  // namespace mobrel
