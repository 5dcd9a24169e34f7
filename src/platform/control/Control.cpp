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
    sizeChanged();
}

std::optional<DeviceContext> Control::image() {
    if (m_pixels.empty()) return std::nullopt;
    return DeviceContext(m_pixels.bits(), m_pixels.width(), m_pixels.height(), RowOrder::TopDown);
}

void Control::showChange(const Rect& rect) {
    const Rect inside{std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, m_width),
                      std::min(rect.bottom, m_height)};
    const bool isEmpty = inside.left >= inside.right || inside.top >= inside.bottom;
    if (m_host != nullptr && !isEmpty) m_host->show(inside);
}

int Control::scaled(double designPixels) const {
    return roundInt(designPixels * m_scale);
}

}  // namespace mobrel
