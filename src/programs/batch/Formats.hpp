// SPDX-License-Identifier: MIT
// The picture formats that can be read and written.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/ByteSource.hpp"
#include "platform/Files.hpp"
#include "platform/StdPicture.hpp"
#include "programs/batch/Document.hpp"

namespace mobrel::batch {

/// As a header tells it, with its signs.
struct PictureSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

struct PictureFormat {
    /// As it is asked for.
    std::string_view name;
    /// With their dots. A target without any of them gets the first.
    std::span<const std::string_view> extensions;
    /// Reads no further than the size stands. No size where the header is none; read() tells why.
    PictureSize (*sizeOf)(ByteSource&);
    StdPicture (*read)(ByteSource&);
    void (*write)(FileWriter&, const Document&);
};

/// All of them. The first is written where none is asked for.
std::span<const PictureFormat> pictureFormats();

/// Nothing where there is none of that name; the case of its letters counts for nothing.
const PictureFormat* formatNamed(std::string_view name);

/// "bmp, ..."
std::string formatNames();

/// The name of a picture's result: its own, with an extension of the format. The extension of another
/// picture format is taken off, any other ending is part of the name ("a.jpg" gives "a.bmp", "a.1" gives
/// "a.1.bmp").
std::string targetName(std::string_view pictureName, const PictureFormat& format);

/// Reads a picture. One of more than maxPixels is refused by what its header says. Throws as the formats'
/// readers do, Failure for one that is too large.
void readDocument(ByteSource& source, std::optional<std::uint64_t> maxPixels, Document& document);

}  // namespace mobrel::batch
