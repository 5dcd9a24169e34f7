// SPDX-License-Identifier: MIT
#include "canvas/cFrame.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kBrushes = 8;
constexpr Color kBlack = 0x000000;
constexpr Color kWhite = 0xFFFFFF;

/// Diagonal stripes, two pixels wide; each brush has them one row further up.
constexpr std::array<PatternBrush, kBrushes> dashBrushes() {
    constexpr std::array<std::uint8_t, 8> kStripes = {0xCC, 0x66, 0x33, 0x99, 0xCC, 0x66, 0x33, 0x99};
    std::array<PatternBrush, kBrushes> brushes;
    for (std::size_t k = 0; k < kBrushes; ++k) {
        for (std::size_t i = 0; i < 8; ++i) brushes[k].rows[i] = kStripes[(i + k) % 8];
    }
    return brushes;
}
constexpr std::array<PatternBrush, kBrushes> kDashBrushes = dashBrushes();

}  // namespace

void cFrame::Init(int left, int top, int right, int bottom) {
    m_boundsRect = {left, top, right, bottom};
    Clear();
}

void cFrame::Clear() {
    m_frameRect = {};
    m_scaledRect = {};
}

void cFrame::SetFrameRect(int left, int top, int right, int bottom, bool crop) {
    m_frameRect = {std::min(left, right), std::min(top, bottom), std::max(left, right),
                   std::max(top, bottom)};
    if (crop) {
        Crop();
    } else {
        rescale();
    }
}

void cFrame::Crop() {
    m_frameRect = intersection(m_frameRect, m_boundsRect);
    rescale();
}

void cFrame::Offset(int xOffset, int yOffset) {
    m_frameRect = moved(m_frameRect, xOffset, yOffset);
    rescale();
}

void cFrame::PaintToDC(DeviceContext& target, int xOffset, int yOffset) const {
    if (IsFrameEmpty()) return;
    target.FrameRect(moved(m_scaledRect, xOffset, yOffset),
                     kDashBrushes[static_cast<std::size_t>(m_brushIndex)], kBlack, kWhite);
}

void cFrame::RotateBrush() {
    m_brushIndex = (m_brushIndex + 1) % static_cast<std::int32_t>(kBrushes);
}

std::optional<Rect> cFrame::GetFrameRect(bool scaled) const {
    if (IsFrameEmpty()) return std::nullopt;
    return scaled ? m_scaledRect : m_frameRect;
}

bool cFrame::IsFrameEmpty() const {
    return m_frameRect.isEmpty();
}

bool cFrame::IsPointInFrame(int x, int y) const {
    return m_frameRect.contains(x, y);
}

void cFrame::setScaleFactor(float factor) {
    constexpr float kLeast = 0.001F;
    m_scaleFactor = factor >= kLeast ? factor : kLeast;
    rescale();
}

void cFrame::rescale() {
    const auto scaledSide = [this](int side) { return roundClamped(double{m_scaleFactor} * side); };
    m_scaledRect = {scaledSide(m_frameRect.left), scaledSide(m_frameRect.top), scaledSide(m_frameRect.right),
                    scaledSide(m_frameRect.bottom)};
}

}  // namespace mobrel
