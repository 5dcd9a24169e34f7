// SPDX-License-Identifier: MIT
#include "desktop/PlatformScrollBar.hpp"

#include <QSignalBlocker>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/Boundary.hpp"
#include "desktop/QtValues.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

PlatformScrollBar::PlatformScrollBar(QWidget& parent) : m_bar(Qt::Vertical, &parent) {
    m_bar.hide();
    m_bar.setCursor(Qt::ArrowCursor);
    m_bar.setFocusPolicy(Qt::NoFocus);
    m_bar.setRange(0, m_max);
    m_bar.setSingleStep(m_smallChange);
    m_bar.setPageStep(m_largeChange);
    QObject::connect(&m_bar, &QScrollBar::valueChanged,
                     [this](int position) { enterCore([&] { barMoved(position); }); });
}

void PlatformScrollBar::setMin(std::int16_t value) {
    setRange(value, m_max);
}

void PlatformScrollBar::setMax(std::int16_t value) {
    setRange(m_min, value);
}

void PlatformScrollBar::setRange(std::int16_t least, std::int16_t greatest) {
    m_min = least;
    m_max = greatest;
    {
        const QSignalBlocker quiet(m_bar);
        m_bar.setRange(0, std::abs(m_max - m_min));
    }
    setValue(m_value);  // the bar's position may count from another end now
}

void PlatformScrollBar::setSmallChange(std::int16_t value) {
    m_smallChange = value;
    m_bar.setSingleStep(value);
}

void PlatformScrollBar::setLargeChange(std::int16_t value) {
    m_largeChange = value;
    m_bar.setPageStep(value);
}

/// Change is raised from here and not from the bar, so that an error in it goes to the caller.
void PlatformScrollBar::setValue(std::int16_t value) {
    const std::int16_t inside = std::clamp(value, std::min(m_min, m_max), std::max(m_min, m_max));
    {
        const QSignalBlocker quiet(m_bar);
        m_bar.setValue(std::abs(inside - m_min));
    }
    if (std::exchange(m_value, inside) != inside) Change.raise();
}

void PlatformScrollBar::barMoved(int position) {
    const int direction = m_min <= m_max ? 1 : -1;
    const auto value = static_cast<std::int16_t>(m_min + direction * position);
    if (std::exchange(m_value, value) != value) Change.raise();
}

int PlatformScrollBar::thickness() const {
    return roundInt(m_bar.sizeHint().width() * m_bar.devicePixelRatioF());
}

void PlatformScrollBar::place(const Rect& rect) {
    // The control draws nothing there, so no line of it may be seen.
    m_bar.setGeometry(coveringRect(rect, m_bar.devicePixelRatioF()));
}

}  // namespace mobrel
