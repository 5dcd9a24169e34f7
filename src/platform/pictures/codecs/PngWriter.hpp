// SPDX-License-Identifier: MIT
// Writes PNG files.
#pragma once

#include "platform/pictures/PictureView.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// Writes the picture in 8 bits a channel, without alpha. Throws as FileWriter does.
void writePng(FileWriter& file, const PictureView& picture);

}  // namespace mobrel
