// SPDX-License-Identifier: MIT
#include "controls/ucInfo.hpp"

#include <algorithm>

#include "platform/base/Numbers.hpp"
#include "platform/drawing/SystemColors.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel {

namespace {

// Design pixels.
constexpr int kHeight = 20;
constexpr int kGripWidth = 20;
constexpr int kPaneTop = 2;
constexpr int kTextLeft = 4;
constexpr int kTextTop = 2;
constexpr int kTextRight = 1;
constexpr int kInfoWidth = 100;
constexpr int kZoomWidth = 64;

/// Texts that the panes behind the first show whole in every font.
constexpr const char* kUsualInfo = "4000x3000x24bpp";
constexpr const char* kGreatestZoom = "10000%";

/// The user's own.
const TextFont kFont;

}  // namespace

void ucInfo::setText(std::size_t pane, std::string text) {
    m_texts[pane] = std::move(text);
    repaint();
    tellAccessible();
}

/// A line of text always fits above the lower edge.
int ucInfo::fittingHeight() const {
    const int line = scaled(kPaneTop + kTextTop) + lineHeight(kFont, scale()) + lineWidth();
    return std::max(scaled(kHeight), line);
}

/// A font that is wider than the one they are made for widens them.
int ucInfo::paneWidth(int designed, const char* text) const {
    const int needed = scaled(kTextLeft) + textWidth(text, kFont, scale()) + scaled(kTextRight);
    return std::max(scaled(designed), needed);
}

void ucInfo::layOut() {
    if (host() == nullptr) return;
    requestSize(width(), fittingHeight());
    placePanes();
    repaint();
    Resize.raise();
}

void ucInfo::placePanes() {
    const int right = width();
    const int bottom = fittingHeight();
    const int gripLeft = right - (host()->isWindowMaximized() ? 0 : scaled(kGripWidth));
    const int zoomLeft = gripLeft - paneWidth(kZoomWidth, kGreatestZoom);
    const int infoLeft = zoomLeft - paneWidth(kInfoWidth, kUsualInfo);
    const int top = scaled(kPaneTop);
    m_grip = {gripLeft, 0, right, bottom};
    m_panes = {
        {{0, top, infoLeft, bottom}, {infoLeft, top, zoomLeft, bottom}, {zoomLeft, top, gripLeft, bottom}}};
    std::ranges::transform(m_panes, m_textRects.begin(), [this](const Rect& pane) {
        return Rect{pane.left + scaled(kTextLeft), pane.top + scaled(kTextTop),
                    pane.right - scaled(kTextRight), pane.bottom};
    });
}

void ucInfo::repaint() {
    auto target = image();
    if (!target) return;
    target->FillRect(bounds(), GetSysColor(SystemColor::ButtonFace));
    target->FillRect(m_panes[kFile], GetSysColor(SystemColor::Window));
    for (const Rect& pane : m_panes) target->DrawEdge(pane, Edge::SunkenOuter, lineWidth());
    target->DrawSizeGrip(m_grip, lineWidth());
    for (std::size_t pane = 0; pane < kPanes; ++pane) {
        const Color color = GetSysColor(pane == kFile ? SystemColor::WindowText : SystemColor::ButtonText);
        DrawTextA(*target, m_textRects[pane], m_texts[pane], kFont, scale(), color, DT_LEFT);
    }
    showAll();
}

bool ucInfo::isOnGrip(const PointerInput& input) const {
    return input.x >= static_cast<float>(m_grip.left);
}

void ucInfo::pointerPressed(const PointerInput& input) {
    if (host() != nullptr && isOnGrip(input)) host()->startWindowSizing();
}

void ucInfo::pointerMoved(const PointerInput& input) {
    if (host() == nullptr) return;
    host()->setCursor(isOnGrip(input) ? Cursor::SizeNorthWestSouthEast : Cursor::Default);
}

std::string ucInfo::accessibleValue() const {
    std::string value;
    for (const std::string& text : m_texts) {
        if (!text.empty()) value += (value.empty() ? "" : ", ") + text;
    }
    return value;
}

}  // namespace mobrel
