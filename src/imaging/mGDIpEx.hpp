// SPDX-License-Identifier: MIT
// The picture formats other than BMP, and scaling of high quality.
#pragma once

#include <memory>
#include <string>

#include "imaging/cDIB.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// The formats of SaveDIB.
enum class ImageFormat : int { Gif = 0, Jpeg = 1, Png = 2 };

/// Reads a PNG file, transparent pixels over black. Null when it cannot be read.
std::unique_ptr<StdPicture> LoadPictureGDIp(const std::string& FileName);

/// Writes the surface into a file that is open, which is left open. Errors: 5 for an empty surface, an
/// unknown format, or sides that the format cannot have; those of FileWriter and codecs(); std::bad_alloc.
void writePicture(FileWriter& file, const cDIB& DIB, ImageFormat format, int quality);

/// Deletes the file and writes the surface to that name, in true colour whatever the document's depth; for
/// GIF reduced to 256 colours where it has more. `Quality`, 0 to 100, is JPEG's. False when it cannot be
/// written, and then there is no file.
bool SaveDIB(const cDIB& DIB, const std::string& FileName, ImageFormat Format, int Quality);

/// Gives the surface another size: by high-quality bicubic, or each pixel from its nearest. False when
/// the surface is empty, no surface can have the size, or memory is short, and then it stays
/// as it was. Bicubic throws as codecs() does.
bool StretchDIB(cDIB& DIB, int NewWidth, int NewHeight, bool HighQuality);

}  // namespace mobrel
