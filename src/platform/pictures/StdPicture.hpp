// SPDX-License-Identifier: MIT
// The picture object: what a picture file or the clipboard gives, before it becomes a document.
#pragma once

#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/PixelBuffer.hpp"

namespace mobrel {

/// One entry of a colour table, in the byte order of a BMP file.
struct RgbQuad {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t reserved = 0;

    bool operator==(const RgbQuad&) const = default;
};

/// The platform's object types, as far as a picture object's handle can have them.
enum class ObjectType : int { Bitmap = 7, Other = 0 };

/// Bytes of one packed row: width pixels of bitsPixel bits, rounded up to 4 bytes.
constexpr std::int64_t packedStride(std::int64_t width, int bitsPixel) {
    return (width * bitsPixel + 31) / 32 * 4;
}

/// A picture with the depth of its source.
struct StdPicture {
    ObjectType objectType = ObjectType::Bitmap;
    /// Depth of the source: 1, 4, 8, 16, 24 or 32.
    int bitsPixel = 24;
    /// The picture in true colour: bottom row first, byte 3 of every pixel 0.
    PixelBuffer pixels;
    /// 2^bitsPixel entries when bitsPixel is below 9, else empty.
    std::vector<RgbQuad> colorTable;
    /// Packed indices when bitsPixel is below 9, else empty: rows of packedStride bytes, bottom row
    /// first, the leftmost pixel in the highest bits.
    std::vector<std::uint8_t> indices;
    /// The file has transparent pixels; they lie over the background here.
    bool hadTransparency = false;
    /// The file has more pictures behind this one.
    bool hasMoreFrames = false;
    /// How the camera was held, by the file: EXIF's orientation, 1 to 8, 1 where none is told. The pixels
    /// are as they are stored.
    int orientation = 1;
};

/// Zeroed pixels of a size that was found valid. Throws std::bad_alloc when memory is short.
inline PixelBuffer zeroedPixels(int width, int height) {
    std::optional<PixelBuffer> pixels = PixelBuffer::create(width, height);
    if (!pixels) throw std::bad_alloc();
    return *std::move(pixels);
}

/// A picture that cannot be read: error 481, whose what() says why in words for a person.
class PictureError : public RuntimeError {
 public:
    explicit PictureError(std::string reason)
        : RuntimeError(ErrorNumber::InvalidPicture), m_reason(std::move(reason)) {}

    const char* what() const noexcept override { return m_reason.c_str(); }

 private:
    std::string m_reason;
};

}  // namespace mobrel
