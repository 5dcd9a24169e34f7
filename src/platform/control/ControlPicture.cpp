// SPDX-License-Identifier: MIT
#include "platform/control/ControlPicture.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace mobrel {

namespace {

/// Destination pixel d of `size` takes this one of `sourceSize`.
int sourceOf(int d, int size, int sourceSize) {
    return static_cast<int>(((2 * std::int64_t{d} + 1) * sourceSize - 1) / (2 * std::int64_t{size}));
}

Color colorOf(const std::uint8_t* pixel) {
    return pixel[2] | Color{pixel[1]} << 8 | Color{pixel[0]} << 16;
}

}  // namespace

std::shared_ptr<const ControlPicture> copyAsControlPicture(const PictureView& view,
                                                           std::optional<Color> transparent) {
    auto pixels = PixelBuffer::create(view.width, view.height);
    if (!pixels) return nullptr;
    for (int y = 0; y < view.height; ++y) {
        std::memcpy(pixels->row(y), view.line(y), pixels->bytesPerRow());
    }
    return std::make_shared<const ControlPicture>(ControlPicture{*std::move(pixels), transparent});
}

void drawControlPicture(DeviceContext& target, const Rect& place, const ControlPicture& picture) {
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const PixelBuffer& source = picture.pixels;
    if (source.empty()) return;
    for (int y = std::max(place.top, 0); y < std::min(place.bottom, target.height()); ++y) {
        const std::uint8_t* from = source.row(sourceOf(y - place.top, height, source.height()));
        std::uint8_t* to = target.line(y);
        for (int x = std::max(place.left, 0); x < std::min(place.right, target.width()); ++x) {
            const std::uint8_t* pixel = from + 4 * sourceOf(x - place.left, width, source.width());
            if (colorOf(pixel) != picture.transparent) std::memcpy(to + 4 * x, pixel, 4);
        }
    }
}

}  // namespace mobrel
