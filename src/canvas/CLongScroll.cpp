// SPDX-License-Identifier: MIT
#include "canvas/CLongScroll.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::int16_t kBarSmallChange = 1;
constexpr std::int16_t kBarLargeChange = 10;

std::int16_t roundInt16(double value) {
    const std::int32_t rounded = roundInt(value);
    if (rounded < std::numeric_limits<std::int16_t>::min() ||
        rounded > std::numeric_limits<std::int16_t>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int16_t>(rounded);
}

/// The part of a whole, 0 of an empty one.
double fraction(double part, double whole) {
    return whole == 0 ? 0 : std::abs(part) / whole;
}

}  // namespace

void CLongScroll::setClient(HostPart* client) {
    auto* const bar = dynamic_cast<ScrollBar*>(client);
    if (client != nullptr && bar == nullptr) throw ScrollClientError();
    m_listener.reset();
    m_bar = bar;
    m_copy = {};
    if (m_bar != nullptr) connectClient();
}

void CLongScroll::connectClient() {
    m_bar->setMin(0);
    m_bar->setMax(std::numeric_limits<std::int16_t>::max());
    m_bar->setSmallChange(kBarSmallChange);
    m_bar->setLargeChange(kBarLargeChange);
    m_bar->setValue(0);
    readClient();

    m_listener.emplace();
    m_bar->Change.connect(*m_listener, [this] { clientChanged(); });
}

double CLongScroll::range() const noexcept {
    return std::abs(static_cast<double>(m_max) - m_min);
}

double CLongScroll::clientRange() const noexcept {
    return std::abs(m_copy.Max - m_copy.Min);
}

std::int32_t CLongScroll::inRange(std::int64_t value) const noexcept {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, lowest(), highest()));
}

void CLongScroll::setMin(std::int32_t value) {
    m_min = value;
    // kept: of a reversed range only the limit that was not changed is looked at
    const bool isOutside = isReversed() ? m_value < m_max : m_value != inRange(m_value);
    if (isOutside) setValue(m_value);
}

void CLongScroll::setMax(std::int32_t value) {
    m_max = value;
    const bool isOutside =
        isReversed() ? m_value > m_min : m_value != inRange(m_value);  // kept: as in setMin
    if (isOutside) setValue(m_value);
}

void CLongScroll::setValue(std::int32_t value) {
    readClient();
    m_value = inRange(value);
    placeClient();
    writeClient();
    Change.raise();
}

void CLongScroll::readClient() {
    if (m_bar == nullptr) return;
    m_copy = {m_bar->Value(), m_bar->Min(), m_bar->Max(), m_bar->SmallChange(), m_bar->LargeChange()};
}

/// Where the bar's thumb belongs for Value.
void CLongScroll::placeClient() {
    const double way = clientRange() * fraction(static_cast<double>(m_value) - lowest(), range());
    m_copy.Value = roundInt16(isReversed() ? m_copy.Max - way : way + m_copy.Min);
}

/// The thumb reaches an end only where Value does; otherwise the arrow at that end would be dead.
void CLongScroll::writeClient() {
    if (m_bar == nullptr) return;
    if (m_copy.Value == m_copy.Min && m_value > m_min) {
        ++m_copy.Value;
    } else if (m_copy.Value == m_copy.Max && m_value < m_max) {
        --m_copy.Value;
    }
    const bool isInside = std::exchange(m_isWriting, true);  // another listener of the bar can set Value too
    m_bar->setValue(m_copy.Value);
    m_isWriting = isInside;
}

void CLongScroll::clientChanged() {
    if (m_isWriting) return;
    const int before = m_copy.Value;
    readClient();
    const int delta = isReversed() ? before - m_copy.Value : m_copy.Value - before;
    const int step = std::abs(delta);
    if (step != m_copy.LargeChange && step != m_copy.SmallChange) {
        followDrag();
    } else {
        const std::int64_t change = step == m_copy.LargeChange ? m_largeChange : m_smallChange;
        m_value = inRange(m_value + change * ((delta > 0) - (delta < 0)));
        placeClient();
    }
    writeClient();
    Change.raise();
}

void CLongScroll::followDrag() {
    const double way = range() * fraction(m_copy.Value - m_copy.Min, clientRange());
    m_value = roundInt(isReversed() ? highest() - way : way + lowest());
}

}  // namespace mobrel
