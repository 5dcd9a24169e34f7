// SPDX-License-Identifier: MIT
#include "platform/control/ControlPicture.hpp"

#include <cstring>
#include <utility>

#include "platform/drawing/AxisMap.hpp"
#include "platform/drawing/ContextPixels.hpp"

namespace mobrel {

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
    const PixelBuffer& source = picture.pixels;
    if (source.empty() || place.isEmpty()) return;
    const AxisMap columns =
        mapAxis({place.left, place.width(), target.width()}, {0, source.width(), source.width()});
    const AxisMap rows =
        mapAxis({place.top, place.height(), target.height()}, {0, source.height(), source.height()});
    int y = rows.first;
    for (const int row : rows.sources) {
        const std::uint8_t* from = source.row(row);
        std::uint8_t* to = pixelAt(target.line(y++), columns.first);
        for (const int column : columns.sources) {
            const std::uint32_t pixel = readPixel(pixelAt(from, column));
            if (colorOf(pixel) != picture.transparent) writePixel(to, pixel);
            to += kPixelBytes;
        }
    }
}

}  // namespace mobrel
