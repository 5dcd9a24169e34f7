// SPDX-License-Identifier: MIT
// One direction in which the canvas scrolls.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/base/Numbers.hpp"

namespace mobrel {

/// What a paint draws along one direction: where it begins in the view, and which pixels of the picture.
struct PaintSpan {
    int destination;
    int destinationSize;
    int source;
    int sourceSize;
};

/// The position goes from 0 to its maximum, in screen pixels. Enlarged sizes are taken in 64 bits and end at
/// 2^31 - 1: what lies beyond is out of reach.
class ScrollAxis {
 public:
    std::int32_t position() const noexcept { return m_position; }
    std::int32_t maximum() const noexcept { return m_maximum; }

    /// Fits an enlarged side of the picture into the container. The result is the length of the view; where
    /// that is the container's, the rest scrolls.
    int fit(int side, std::int32_t zoom, int container) {
        const std::int32_t enlarged = clampInt(std::int64_t{side} * zoom);
        m_maximum = std::max(enlarged - container, 0);
        return std::min(enlarged, container);
    }

    /// Keeps the relative place when the maximum has changed. A picture that did not scroll before opens at
    /// its centre.
    void keepPlace() {
        if (m_laidOutMaximum == 0) {
            m_position = roundInt(m_maximum / 2.0);
        } else {
            m_position = roundInt(double{m_publishedPosition} * m_maximum / double{m_laidOutMaximum});
        }
        m_laidOutMaximum = static_cast<float>(m_maximum);
        publish();
    }

    /// Goes to a place, or as far as there is picture.
    void moveTo(std::int32_t position) { m_position = std::min(std::max(position, 0), m_maximum); }

    /// Positions are published as floats: beyond 2^24 one may count as moved that is not.
    bool hasMoved() const { return double{m_publishedPosition} != m_position; }
    void publish() { m_publishedPosition = static_cast<float>(m_position); }

    /// The pixels of the picture that the view shows, and two to spare for those that are cut by its edges,
    /// so that a paint costs what the view does. Of pixels larger than the view no more is drawn than it
    /// shows, which keeps every number within 32 bits.
    PaintSpan window(int view, std::int32_t zoom) const {
        const int pixel = std::min(zoom, std::max(view, 1));
        const int count = view / zoom + 2;
        const int shownOfFirst = std::min(zoom - m_position % zoom, pixel);
        return {shownOfFirst - pixel, count * pixel, m_position / zoom, count};
    }

 private:
    std::int32_t m_position = 0;
    std::int32_t m_maximum = 0;
    /// As owners last heard of it, and as of the last layout.
    float m_publishedPosition = 0;
    float m_laidOutMaximum = 0;
};

}  // namespace mobrel
