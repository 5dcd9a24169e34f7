// SPDX-License-Identifier: MIT
// Writes PNG files.
#pragma once

#include "platform/Files.hpp"
#include "platform/PictureView.hpp"

namespace mobrel {

/// Writes the picture in 8 bits a channel, without alpha. Throws as FileWriter does.
void writePng(FileWriter& file, const PictureView& picture);

}  // namespace mobrel
