// SPDX-License-Identifier: MIT
// Reads picture files of all formats.
#pragma once

#include <memory>
#include <string>

#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Reads a BMP, GIF or JPEG file. The content decides, not the name. Errors: the platform's file errors when
/// the file cannot be read, PictureError when it is none of these or a broken one, those of codecs().
std::unique_ptr<StdPicture> readPictureFile(const std::string& path);

enum class PictureFileFormat { Bmp, Gif, Jpeg, Png };

struct IdentifiedPicture {
    PictureFileFormat format;
    StdPicture picture;
};

/// Reads a picture of any of the formats from its first byte; the content decides. Throws as the formats'
/// readers and codecs() do, PictureError for something else.
IdentifiedPicture readPicture(BufferedSource& source, const ReadOptions& options = {});

}  // namespace mobrel
