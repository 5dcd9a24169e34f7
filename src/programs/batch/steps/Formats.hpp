// SPDX-License-Identifier: MIT
// The picture formats that can be read and written.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/pictures/PictureReader.hpp"
#include "platform/system/Files.hpp"
#include "programs/batch/steps/Document.hpp"

namespace mobrel::batch {

struct PictureFormat {
    PictureFileFormat format = PictureFileFormat::Bmp;
    /// As it is asked for.
    std::string_view name;
    /// With their dots. A target without any of them gets the first.
    std::span<const std::string_view> extensions;
    /// The longest side of a picture.
    int mostSide = 0;
    /// Bits a pixel of its files; nothing where a file has the depth of its document.
    std::optional<int> depth;
    /// `quality`, 0 to 100, is JPEG's.
    void (*write)(FileWriter&, const Document&, int quality);
};

/// By the name or an extension without its dot, in any letter case. Null where there is none.
const PictureFormat* formatNamed(std::string_view name);

const PictureFormat& formatFor(PictureFileFormat format);

/// "bmp, ..."
std::string formatNames();

/// The name of a picture's result: its own, with an extension of the format. The extension of another
/// picture format is taken off, any other ending is part of the name ("a.jpg" gives "a.bmp", "a.1" gives
/// "a.1.bmp").
std::string targetName(std::string_view pictureName, const PictureFormat& format);

}  // namespace mobrel::batch
