// SPDX-License-Identifier: MIT
#include "programs/gallery/Pictures.hpp"

namespace mobrel::gallery {

namespace {

constexpr Color rgb(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8 | blue << 16;
}

/// What `draw` makes of a picture of that size.
template <typename Draw>
std::shared_ptr<const ControlPicture> drawn(int width, int height, Draw&& draw) {
    cDIB picture;
    if (!picture.Create(width, height, 0)) return nullptr;
    draw(*picture.hDIBDC());
    return copyAsControlPicture(picture.view());
}

}  // namespace

void drawLandscape(cDIB& target) {
    constexpr int kWidth = 160;
    constexpr int kHeight = 120;
    constexpr int kHorizon = 70;
    if (!target.Create(kWidth, kHeight, 0)) return;
    DeviceContext& context = *target.hDIBDC();
    context.GradientFill({0, 0, kWidth, kHorizon}, rgb(70, 130, 200), rgb(220, 235, 250),
                         GradientDirection::Vertical);
    context.GradientFill({0, kHorizon, kWidth, kHeight}, rgb(90, 150, 70), rgb(40, 80, 40),
                         GradientDirection::Vertical);
    context.RoundRect({112, 12, 138, 38}, 26, 26, rgb(250, 200, 60), rgb(255, 225, 110));
    context.FillRect({34, 52, 66, 86}, rgb(180, 80, 60));
    context.FillRect({30, 46, 70, 53}, rgb(110, 50, 45));
    context.FillRect({45, 66, 56, 86}, rgb(70, 40, 30));
    for (int x = 0; x < kWidth; x += 4) {
        const int y = 96 + x % 16;
        context.FillRect({x, y, x + 1, y + 1}, rgb(250, 240, 200));
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
