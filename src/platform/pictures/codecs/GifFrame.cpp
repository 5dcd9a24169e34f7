// SPDX-License-Identifier: MIT
// Reads the first frame of a GIF file through giflib.
#include "platform/pictures/codecs/GifFrame.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace mobrel {

namespace {

constexpr std::array<std::uint8_t, 4> kSignature{'G', 'I', 'F', '8'};
// Comments and profiles before the first frame; what has more is no picture.
constexpr std::size_t kMostExtensionBytes = std::size_t{16} << 20;
constexpr const char* kInHeaders = "in its headers";

int readBytes(GifFileType* file, GifByteType* into, int count) {
    auto* input = static_cast<GuardedSource*>(file->UserData);
    return input->read({into, static_cast<std::size_t>(count)}) ? count : 0;
}

[[noreturn]] void failAt(const GuardedSource& input, int error, const std::string& place) {
    input.fail(place, GifErrorString(error), error == D_GIF_ERR_NOT_ENOUGH_MEM);
}

GifFileType* openGif(GuardedSource& input) {
    input.requireStart(kSignature, "not a GIF file");
    int error = 0;
    GifFileType* const file = DGifOpen(&input, readBytes, &error);
    if (file == nullptr) failAt(input, error, kInHeaders);
    return file;
}

std::vector<RgbQuad> tableOf(const ColorMapObject& map) {
    std::vector<RgbQuad> table;
    for (const GifColorType& color : std::span(map.Colors, static_cast<std::size_t>(map.ColorCount))) {
        table.push_back({color.Blue, color.Green, color.Red, 0});
    }
    return table;
}

}  // namespace

GifFile::GifFile(GuardedSource& input) : m_input(input), m_file(openGif(input)) {}

GifFrame GifFile::readFrame() {
    GifFrame frame;
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    while (type != IMAGE_DESC_RECORD_TYPE) {
        if (DGifGetRecordType(m_file.get(), &type) == GIF_ERROR) fail(kInHeaders);
        if (type == TERMINATE_RECORD_TYPE) throw PictureError("the file has no frame");
        if (type == EXTENSION_RECORD_TYPE) readExtension(frame);
    }
    if (DGifGetImageDesc(m_file.get()) == GIF_ERROR) fail(kInHeaders);

    const GifImageDesc& image = m_file->Image;
    const ColorMapObject* const map = image.ColorMap != nullptr ? image.ColorMap : m_file->SColorMap;
    if (map == nullptr) throw PictureError("the file has no colour table");
    if (image.Width < 1 || image.Height < 1) throw PictureError("the first frame has no pixels");
    frame.left = image.Left;
    frame.top = image.Top;
    frame.width = image.Width;
    frame.height = image.Height;
    frame.screenWidth = std::max(m_file->SWidth, image.Left + image.Width);
    frame.screenHeight = std::max(m_file->SHeight, image.Top + image.Height);
    frame.isInterlaced = image.Interlace;
    frame.colorTable = tableOf(*map);
    return frame;
}

void GifFile::readExtension(GifFrame& frame) {
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(m_file.get(), &code, &block) == GIF_ERROR) fail(kInHeaders);
    while (block != nullptr) {
        m_extensionBytes += std::size_t{block[0]} + 1;
        if (m_extensionBytes > kMostExtensionBytes)
            throw PictureError("too many bytes before the first frame");
        GraphicsControlBlock control{};
        if (code == GRAPHICS_EXT_FUNC_CODE && DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
            frame.transparent.reset();
            if (control.TransparentColor != NO_TRANSPARENT_COLOR) {
                frame.transparent = static_cast<std::uint8_t>(control.TransparentColor);
            }
        }
        if (DGifGetExtensionNext(m_file.get(), &block) == GIF_ERROR) fail(kInHeaders);
    }
}

void GifFile::readLine(std::span<std::uint8_t> indices) {
    if (DGifGetLine(m_file.get(), indices.data(), static_cast<int>(indices.size())) == GIF_ERROR) {
        fail(placeOfLine(m_line, m_file->Image.Height));
    }
    ++m_line;
}

bool GifFile::readEnd() {
    if (m_input.ahead(1).empty()) fail("behind its first frame");
    GifFrame ignored;
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(m_file.get(), &type) == GIF_OK && type == EXTENSION_RECORD_TYPE) {
        readExtension(ignored);
    }
    return type == IMAGE_DESC_RECORD_TYPE;
}

void GifFile::fail(const std::string& place) const {
    failAt(m_input, m_file->Error, place);
}

}  // namespace mobrel
