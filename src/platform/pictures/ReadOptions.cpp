// SPDX-License-Identifier: MIT
#include "platform/pictures/ReadOptions.hpp"

#include <string>

#include "platform/drawing/PixelBuffer.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

void checkPictureSize(std::int64_t width, std::int64_t height, const ReadOptions& options) {
    const std::string pixels = std::to_string(width) + " x " + std::to_string(height) + " pixels";
    if (width < 1 || height < 1) throw PictureError(pixels + " are not possible");
    if (!PixelBuffer::isValidSize(width, height)) {
        throw PictureError(pixels + " are more than a picture can have");
    }
    if (static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) > options.maxPixels) {
        throw PictureError(pixels + " are more than " + std::to_string(options.maxPixels));
    }
}

}  // namespace mobrel
