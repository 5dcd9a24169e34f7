// SPDX-License-Identifier: MIT
// Writes GIF files through giflib.
#include "platform/pictures/codecs/GifWriter.hpp"

#include <gif_lib.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

namespace {

constexpr int kLongestSide = 65535;

int writeBytes(GifFileType* file, const GifByteType* bytes, int count) {
    auto* writer = static_cast<GuardedWriter*>(file->UserData);
    return writer->write({bytes, static_cast<std::size_t>(count)}) ? count : 0;
}

struct CloseGif {
    void operator()(GifFileType* file) const noexcept { EGifCloseFile(file, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, CloseGif>;

struct FreeMap {
    void operator()(ColorMapObject* map) const noexcept { GifFreeMapObject(map); }
};
using Map = std::unique_ptr<ColorMapObject, FreeMap>;

// The table of the file is as large as the next power of two.
Map mapOf(std::span<const RgbQuad> table) {
    const int bits = std::max(GifBitSize(static_cast<int>(table.size())), 1);
    Map map(GifMakeMapObject(1 << bits, nullptr));
    if (map == nullptr) throw std::bad_alloc();
    std::ranges::transform(table, map->Colors, [](RgbQuad color) {
        return GifColorType{color.red, color.green, color.blue};
    });
    return map;
}

// False when giflib gave up.
bool writeFrame(GifFileType* gif, const IndexedPicture& picture, const ColorMapObject* map) {
    if (EGifPutScreenDesc(gif, picture.width, picture.height, 8, 0, map) == GIF_ERROR) return false;
    if (EGifPutImageDesc(gif, 0, 0, picture.width, picture.height, false, nullptr) == GIF_ERROR) return false;
    const auto width = static_cast<std::size_t>(picture.width);
    std::vector<std::uint8_t> line(width);  // giflib wants one that it may change
    for (int y = 0; y < picture.height; ++y) {
        std::ranges::copy(picture.indices.subspan(static_cast<std::size_t>(y) * width, width), line.begin());
        if (EGifPutLine(gif, line.data(), picture.width) == GIF_ERROR) return false;
    }
    return true;
}

}  // namespace

void writeGif(FileWriter& file, const IndexedPicture& picture) {
    const bool isWritable = picture.width >= 1 && picture.width <= kLongestSide && picture.height >= 1 &&
                            picture.height <= kLongestSide && !picture.colorTable.empty();
    if (!isWritable) throw RuntimeError(ErrorNumber::InvalidCall);
    const Map map = mapOf(picture.colorTable);
    GuardedWriter writer(file);
    Gif gif(EGifOpen(&writer, writeBytes, nullptr));
    if (gif == nullptr) throw std::bad_alloc();
    const bool isWritten = writeFrame(gif.get(), picture, map.get());
    gif.reset();  // writes the last byte
    writer.finish(isWritten);
}

}  // namespace mobrel
