// SPDX-License-Identifier: MIT
// The crop frame: one rectangle over a picture.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// Keeps the frame in picture pixels, and the same in the pixels of a view that is not scrolled.
class cFrame {
 public:
    /// Sets the area that the frame may cover, in picture pixels, and removes the frame.
    void Init(int left, int top, int right, int bottom);
    /// Removes the frame.
    void Clear();
    /// Sets the frame, in picture pixels; sides that are the wrong way round are swapped. With `crop` it is
    /// cut to its area.
    void SetFrameRect(int left, int top, int right, int bottom, bool crop);
    /// Cuts the frame to its area.
    void Crop();
    /// Moves the frame, also out of its area.
    void Offset(int xOffset, int yOffset);

    /// Draws the outline in dashes of black and white, one pixel wide at every display scale, moved by the
    /// offsets. Nothing without a frame.
    void PaintToDC(DeviceContext& target, int xOffset, int yOffset) const;
    /// Takes the next of the eight phases of the dashes for the outlines to come.
    void RotateBrush();

    /// The frame in view pixels (`scaled`) or picture pixels; nothing when there is none.
    std::optional<Rect> GetFrameRect(bool scaled) const;
    bool IsFrameEmpty() const;
    /// Right and bottom edges are outside.
    bool IsPointInFrame(int x, int y) const;

    /// View pixels a picture pixel.
    float ScaleFactor() const noexcept { return m_scaleFactor; }
    /// Below 0.001 counts as 0.001.
    void setScaleFactor(float factor);

 private:
    void rescale();

    Rect m_boundsRect;
    Rect m_frameRect;
    Rect m_scaledRect;
    float m_scaleFactor = 1;
    std::int32_t m_brushIndex = 0;
};

}  // namespace mobrel
