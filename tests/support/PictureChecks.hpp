// SPDX-License-Identifier: MIT
// What holds for every picture object, and a source as poor as a pipe: for tests and fuzz targets.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/pictures/StdPicture.hpp"
#include "platform/system/ByteSource.hpp"

namespace mobrel::test {

/// A source that cannot tell how many bytes are to come.
class PipeSource final : public ByteSource {
 public:
    explicit PipeSource(std::span<const std::uint8_t> bytes) : m_memory(bytes) {}

    std::size_t read(std::span<std::uint8_t> into) override { return m_memory.read(into); }
    std::optional<std::uint64_t> remaining() const override { return std::nullopt; }

 private:
    MemorySource m_memory;
};

/// Index of the pixel in column x of memory row `row`, from the packed map.
inline unsigned indexAt(const StdPicture& picture, int x, int row) {
    const auto stride = static_cast<std::size_t>(packedStride(picture.pixels.width(), picture.bitsPixel));
    const auto bit = static_cast<std::size_t>(x) * static_cast<std::size_t>(picture.bitsPixel);
    const unsigned byte = picture.indices[static_cast<std::size_t>(row) * stride + bit / 8];
    return byte >> (8 - picture.bitsPixel - static_cast<int>(bit % 8)) & ((1U << picture.bitsPixel) - 1);
}

/// The first rule of StdPicture that the picture breaks; empty when it is sound.
inline std::string flawOf(const StdPicture& picture) {
    const int width = picture.pixels.width();
    const int height = picture.pixels.height();
    if (!PixelBuffer::isValidSize(width, height)) return "no valid size";
    const bool isIndexed = picture.bitsPixel < 9;
    const std::size_t colors = isIndexed ? std::size_t{1} << picture.bitsPixel : 0;
    if (picture.colorTable.size() != colors) return "wrong length of the colour table";
    const std::int64_t mapBytes = isIndexed ? packedStride(width, picture.bitsPixel) * height : 0;
    if (picture.indices.size() != static_cast<std::size_t>(mapBytes)) return "wrong length of the index map";
    for (int row = 0; row < height; ++row) {
        const std::uint8_t* pixel = picture.pixels.row(row);
        for (int x = 0; x < width; ++x, pixel += 4) {
            if (pixel[3] != 0) return "byte 3 of a pixel is not 0";
            if (!isIndexed) continue;
            const RgbQuad color = picture.colorTable[indexAt(picture, x, row)];
            if (RgbQuad{pixel[0], pixel[1], pixel[2], 0} != color) return "a pixel is not its index's colour";
        }
        // Behind the last pixel a packed row is zero.
        for (std::int64_t x = width; x * picture.bitsPixel % 32 != 0 && isIndexed; ++x) {
            if (indexAt(picture, static_cast<int>(x), row) != 0)
                return "the padding of a packed row is not 0";
        }
    }
    return {};
}

}  // namespace mobrel::test
