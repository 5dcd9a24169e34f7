// SPDX-License-Identifier: MIT
// The picture that another program offers on the clipboard.
#pragma once

#include <memory>

#include "platform/pictures/StdPicture.hpp"

class QMimeData;

namespace mobrel {

/// Whether one of the formats there is a picture.
bool hasPicture(const QMimeData& offered);

/// Reads the first of PNG, BMP, JPEG and GIF that can be read by the system's own decoders, so that there is
/// no limit of size but a surface's, and the pixels are those of a file; what is left, by Qt's. Null when
/// none can be read, and then the paste changes nothing.
std::unique_ptr<StdPicture> pictureOf(const QMimeData& offered);

}  // namespace mobrel
