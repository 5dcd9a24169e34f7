// SPDX-License-Identifier: MIT
#include "programs/gallery/Pictures.hpp"

namespace mobrel::gallery {

namespace {

/// What `draw` makes of a picture of that size.
template <typename Draw>
std::shared_ptr<const ControlPicture> drawn(int width, int height, Draw&& draw) {
    cDIB picture;
    if (!picture.Create(width, height, 0)) return nullptr;
    draw(*picture.hDIBDC());
    return copyAsControlPicture(picture.view());
}

}  // namespace

void drawLandscape(cDIB& target, int factor) {
    const auto at = [=](int left, int top, int right, int bottom) {
        return Rect{left * factor, top * factor, right * factor, bottom * factor};
    };
    if (!target.Create(160 * factor, 120 * factor, 0)) return;
    DeviceContext& context = *target.hDIBDC();
    context.GradientFill(at(0, 0, 160, 70), rgb(70, 130, 200), rgb(220, 235, 250),
                         GradientDirection::Vertical);
    context.GradientFill(at(0, 70, 160, 120), rgb(90, 150, 70), rgb(40, 80, 40), GradientDirection::Vertical);
    context.RoundRect(at(112, 12, 138, 38), 26 * factor, 26 * factor, rgb(250, 200, 60), rgb(255, 225, 110));
    context.FillRect(at(34, 52, 66, 86), rgb(180, 80, 60));
    context.FillRect(at(30, 46, 70, 53), rgb(110, 50, 45));
    context.FillRect(at(45, 66, 56, 86), rgb(70, 40, 30));
    for (int x = 0; x < 160; x += 4) {
        const int y = 96 + x % 16;
        context.FillRect(at(x, y, x + 1, y + 1), rgb(250, 240, 200));
    }
}

std::shared_ptr<const ControlPicture> railPicture(int width, int height) {
    return drawn(width, height, [=](DeviceContext& context) {
        const bool isHorizontal = width > height;
        context.GradientFill({0, 0, width, height}, rgb(60, 100, 190), rgb(200, 60, 50),
                             isHorizontal ? GradientDirection::Horizontal : GradientDirection::Vertical);
    });
}

std::shared_ptr<const ControlPicture> rowPicture() {
    return drawn(64, 16, [](DeviceContext& context) {
        context.GradientFill({0, 0, 64, 8}, rgb(150, 90, 160), rgb(90, 40, 110), GradientDirection::Vertical);
        context.GradientFill({0, 8, 64, 16}, rgb(80, 30, 100), rgb(120, 60, 140),
                             GradientDirection::Vertical);
    });
}

}  // namespace mobrel::gallery
