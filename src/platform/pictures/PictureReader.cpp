// SPDX-License-Identifier: MIT
#include "platform/pictures/PictureReader.hpp"

#include <algorithm>
#include <array>
#include <cstring>
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
constexpr std::array<Signature, 4> kSignatures{{
    {"BM", PictureFileFormat::Bmp},
    {"GIF8", PictureFileFormat::Gif},
    {"\xFF\xD8\xFF", PictureFileFormat::Jpeg},
    {"\x89PNG\r\n\x1A\n", PictureFileFormat::Png},
}};

std::optional<PictureFileFormat> identify(BufferedSource& source) {
    const auto found = std::ranges::find_if(kSignatures, [&](const Signature& signature) {
        const std::string_view bytes = signature.bytes;
        const std::span<const std::uint8_t> head = source.ahead(bytes.size());
        return head.size() == bytes.size() && std::memcmp(head.data(), bytes.data(), bytes.size()) == 0;
    });
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
