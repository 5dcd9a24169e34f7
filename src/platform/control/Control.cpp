// SPDX-License-Identifier: MIT
#include "platform/control/Control.hpp"

#include <algorithm>
#include <utility>

#include "platform/base/Numbers.hpp"

namespace mobrel {

void Control::setHost(ControlHost* host) {
    m_host = host;
    hostChanged();
}

void Control::setSize(int width, int height, double scale) {
    m_width = std::max(width, 0);
    m_height = std::max(height, 0);
    m_scale = scale;
    if (m_pixels.width() != m_width || m_pixels.height() != m_height) {
        auto pixels = PixelBuffer::create(m_width, m_height);
        m_pixels = pixels ? *std::move(pixels) : PixelBuffer();
    }
    if (!m_isAskingForSize) sizeChanged();
}

std::optional<DeviceContext> Control::image() {
    if (m_pixels.empty()) return std::nullopt;
    return DeviceContext(m_pixels.bits(), m_pixels.width(), m_pixels.height(), RowOrder::TopDown);
}

void Control::showChange(const Rect& rect) {
    const Rect inside = intersection(rect, bounds());
    if (m_host != nullptr && !inside.isEmpty()) m_host->show(inside);
}

void Control::requestSize(int width, int height) {
    if (m_host == nullptr || (width == m_width && height == m_height)) return;
    m_isAskingForSize = true;
    m_host->requestSize(width, height);
    m_isAskingForSize = false;
}

void Control::captureMouse() {
    if (m_host != nullptr) m_host->captureMouse();
}

void Control::tellAccessible() {
    if (m_host != nullptr) m_host->accessibleChanged();
}

int Control::scaled(double designPixels) const {
    return roundInt(designPixels * m_scale);
}

}  // namespace mobrel
