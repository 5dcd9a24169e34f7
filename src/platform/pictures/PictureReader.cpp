// SPDX-License-Identifier: MIT
#include "platform/pictures/PictureReader.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "platform/pictures/BmpReader.hpp"
#include "platform/pictures/Codecs.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

namespace {

struct Signature {
    std::string_view bytes;
    PictureFileFormat format;
};
/// The longest comes last.
constexpr std::array<Signature, 4> kSignatures{{
    {"BM", PictureFileFormat::Bmp},
    {"GIF8", PictureFileFormat::Gif},
    {"\xFF\xD8\xFF", PictureFileFormat::Jpeg},
    {"\x89PNG\r\n\x1A\n", PictureFileFormat::Png},
}};

std::optional<PictureFileFormat> identify(BufferedSource& source) {
    const std::span<const std::uint8_t> head = source.ahead(kSignatures.back().bytes.size());
    const std::string_view start(reinterpret_cast<const char*>(head.data()), head.size());
    const auto found = std::ranges::find_if(
        kSignatures, [&](const Signature& signature) { return start.starts_with(signature.bytes); });
    if (found == kSignatures.end()) return std::nullopt;
    return found->format;
}

StdPicture readAs(PictureFileFormat format, BufferedSource& source, const ReadOptions& options) {
    switch (format) {
        case PictureFileFormat::Gif:
            return codecs().readGif(source, options);
        case PictureFileFormat::Jpeg:
            return codecs().readJpeg(source, options);
        case PictureFileFormat::Png:
            return codecs().readPng(source, options);
        default:
            return readBmp(source, options);
    }
}

}  // namespace

std::unique_ptr<StdPicture> readPictureFile(const std::string& path) {
    FileSource file(path);
    BufferedSource source(file);
    const std::optional<PictureFileFormat> format = identify(source);
    if (!format || *format == PictureFileFormat::Png) throw PictureError("not a BMP, GIF or JPEG file");
    return std::make_unique<StdPicture>(readAs(*format, source, {}));
}

IdentifiedPicture readPicture(BufferedSource& source, const ReadOptions& options) {
    const std::optional<PictureFileFormat> format = identify(source);
    if (!format) throw PictureError("not a BMP, GIF, JPEG or PNG file");
    return {*format, readAs(*format, source, options)};
}

}  // namespace mobrel
