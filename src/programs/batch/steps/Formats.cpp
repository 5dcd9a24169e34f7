// SPDX-License-Identifier: MIT
#include "programs/batch/steps/Formats.hpp"

#include <algorithm>
#include <array>
#include <limits>

#include "imaging/cDIBSave.hpp"
#include "imaging/mGDIpEx.hpp"
#include "platform/base/AsciiText.hpp"

namespace mobrel::batch {

namespace {

constexpr std::array<std::string_view, 2> kBmpExtensions = {".bmp", ".dib"};
constexpr std::array<std::string_view, 1> kGifExtensions = {".gif"};
constexpr std::array<std::string_view, 3> kJpegExtensions = {".jpg", ".jpeg", ".jpe"};
constexpr std::array<std::string_view, 1> kPngExtensions = {".png"};

void writeBmp(FileWriter& file, const Document& document, int) {
    cDIBSave().Write_BMP(file, document.surface, document.palette, &document.indices, document.depth);
}

template <ImageFormat Format>
void writeImage(FileWriter& file, const Document& document, int quality) {
    writePicture(file, document.surface, Format, quality);
}

constexpr int kAnySide = std::numeric_limits<int>::max();

constexpr std::array<PictureFormat, 4> kFormats = {{
    {PictureFileFormat::Bmp, "bmp", kBmpExtensions, kAnySide, {}, writeBmp},
    {PictureFileFormat::Gif, "gif", kGifExtensions, 65535, 8, writeImage<ImageFormat::Gif>},
    {PictureFileFormat::Jpeg, "jpg", kJpegExtensions, 65500, 24, writeImage<ImageFormat::Jpeg>},
    {PictureFileFormat::Png, "png", kPngExtensions, kAnySide, 24, writeImage<ImageFormat::Png>},
}};

bool hasExtension(std::string_view name, std::string_view extension) {
    return name.size() > extension.size() &&
           equalIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

// The extension that the name ends with; empty where it is none of the format's.
std::string_view extensionOf(std::string_view name, const PictureFormat& format) {
    const auto found = std::ranges::find_if(
        format.extensions, [&](std::string_view extension) { return hasExtension(name, extension); });
    return found == format.extensions.end() ? std::string_view() : *found;
}

}  // namespace

const PictureFormat* formatNamed(std::string_view name) {
    const auto found = std::ranges::find_if(kFormats, [&](const PictureFormat& format) {
        return !extensionOf("a." + std::string(name), format).empty();
    });
    return found == kFormats.end() ? nullptr : &*found;
}

const PictureFormat& formatFor(PictureFileFormat format) {
    return *std::ranges::find(kFormats, format, &PictureFormat::format);
}

std::string formatNames() {
    std::string names;
    for (const PictureFormat& format : kFormats) {
        if (!names.empty()) names += ", ";
        names += format.name;
    }
    return names;
}

std::string targetName(std::string_view pictureName, const PictureFormat& format) {
    if (!extensionOf(pictureName, format).empty()) return std::string(pictureName);
    for (const PictureFormat& other : kFormats) {
        const std::string_view extension = extensionOf(pictureName, other);
        if (extension.empty()) continue;
        pictureName.remove_suffix(extension.size());
        break;
    }
    return std::string(pictureName) + std::string(format.extensions.front());
}

}  // namespace mobrel::batch
