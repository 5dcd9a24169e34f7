// SPDX-License-Identifier: MIT
// A picture that is a part of a control, such as a slider's knob.
#pragma once

#include <memory>
#include <optional>

#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/pictures/PictureView.hpp"

namespace mobrel {

struct ControlPicture {
    /// Top row first.
    PixelBuffer pixels;
    /// Pixels of this colour let through what is behind them.
    std::optional<Color> transparent;
};

/// A copy of a picture; null when it is empty or memory is short.
std::shared_ptr<const ControlPicture> copyAsControlPicture(const PictureView& view,
                                                           std::optional<Color> transparent = std::nullopt);

/// Draws the picture fitted to a rectangle of the target, by the rule of DeviceContext::StretchBlt. An empty
/// or inverted rectangle draws nothing.
void drawControlPicture(DeviceContext& target, const Rect& place, const ControlPicture& picture);

}  // namespace mobrel
