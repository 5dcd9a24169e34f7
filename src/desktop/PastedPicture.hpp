// SPDX-License-Identifier: MIT
// The picture that another program offers on the clipboard.
#pragma once

#include <memory>

#include "platform/pictures/StdPicture.hpp"

class QMimeData;

namespace mobrel {

/// Whether one of the formats there is a picture.
bool hasPicture(const QMimeData& offered);

/// Reads it by the system's own decoders: PNG, else BMP, JPEG or GIF, and what is left by Qt's. Null when
/// none of the formats can be read.
std::unique_ptr<StdPicture> pictureOf(const QMimeData& offered);

}  // namespace mobrel
