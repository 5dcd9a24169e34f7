// SPDX-License-Identifier: MIT
// The crop frame: its dotted rectangle while it is dragged, and the menu on it.
#include <algorithm>
#include <array>
#include <utility>

#include "canvas/ucCanvas.hpp"

namespace mobrel {

namespace {

constexpr std::array<MenuLine, 5> kCropMenu{{{"Crop"}, {"Copy"}, {"-"}, {"Remove frame"}, {"Cancel"}}};
enum CropLine { kCrop = 0, kCopy = 1, kRemoveFrame = 3 };

Rect around(const Rect& a, const Rect& b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

}  // namespace

/// Inverts; a second call takes it away. So a paint while a frame is dragged draws it in place of the dashes.
void ucCanvas::drawRubberBand(DeviceContext& target) {
    target.DrawFocusRect(m_rubberRect, lineWidth());
}

/// kept: a frame without width or height has no rectangle, so the last one stays on the screen.
void ucCanvas::dragFrame(const ViewPlace& place) {
    const Point start = toImage({m_lastX, m_lastY});
    const Point end = toImage(rounded(place));
    m_frame.SetFrameRect(start.x, start.y, end.x, end.y, false);
    const auto scaledFrame = m_frame.GetFrameRect(true);
    if (!scaledFrame) return;

    const Rect earlier = m_rubberRect;
    auto target = viewTarget();
    if (target) drawRubberBand(*target);
    m_rubberRect = FrameToView(*scaledFrame);
    if (target) drawRubberBand(*target);
    showInView(around(earlier, m_rubberRect));
}

void ucCanvas::eraseRubberBand() {
    if (!hasRubberBand()) return;
    if (auto target = viewTarget()) drawRubberBand(*target);
    showInView(m_rubberRect);
    m_rubberRect = kNowhere;
}

void ucCanvas::finishFrame() {
    m_frame.Crop();
    const auto scaledFrame = m_frame.GetFrameRect(true);
    auto target = viewTarget();
    if (!target || !scaledFrame) return;
    paintFrame(*target);
    showInView(FrameToView(*scaledFrame));
}

void ucCanvas::showCropMenu(const Point& view) {
    if (host() == nullptr) return;
    mnuCrop(host()->popUp(kCropMenu, m_iCanvas.left + view.x, m_iCanvas.top + view.y));
}

void ucCanvas::mnuCrop(int Index) {
    switch (Index) {
        case kCrop:
            return cropPicture();
        case kCopy:
            return copyFrame();
        case kRemoveFrame:
            RemoveCropRectangle();
            return Repaint();
        default:
            return;
    }
}

/// A picture whose part finds no memory stays as it is.
void ucCanvas::cropPicture() {
    auto part = framedPart();
    if (!part) return;
    DIB.adopt(*std::move(part));
    m_frame.Clear();
    Resize();
    Repaint();
    CropDone.raise();
}

void ucCanvas::copyFrame() {
    if (m_clipboard == nullptr) return;
    auto part = framedPart();
    if (!part) return;
    cDIB tempDIB;
    tempDIB.adopt(*std::move(part));
    tempDIB.CopyToClipboard(*m_clipboard);
}

/// Nothing when there is no picture, no frame or no memory.
std::optional<PixelBuffer> ucCanvas::framedPart() const {
    const auto frame = m_frame.GetFrameRect(false);
    return frame ? DIB.part(*frame) : std::nullopt;
}

}  // namespace mobrel
