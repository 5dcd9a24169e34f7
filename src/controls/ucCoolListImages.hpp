// SPDX-License-Identifier: MIT
// What the list control needs of the object that holds its icons.
#pragma once

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// How an icon is drawn.
enum class ImageStyle : int { Normal = 0, Transparent = 1 };

class ImageList {
 public:
    virtual ~ImageList() = default;

    /// Draws an icon, counted from 1, at a place of the target. May fail with a RuntimeError, as for an icon
    /// that is not there.
    virtual void draw(DeviceContext& target, int x, int y, int index, ImageStyle style) const = 0;
    /// In device pixels.
    virtual int imageHeight() const = 0;
};

}  // namespace mobrel
