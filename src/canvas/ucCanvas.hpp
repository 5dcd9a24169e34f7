// SPDX-License-Identifier: MIT
// The view of one surface.
#pragma once

#include <cstdint>

#include "imaging/cDIB.hpp"
#include "platform/Event.hpp"

namespace mobrel {

/// Owns the surface it shows. The owner of the control changes the surface directly.
class ucCanvas {
 public:
    ucCanvas() {
        DIB.Progress.connect([this](std::int32_t value) { DIBProgress.raise(value); });
        DIB.ProgressEnd.connect([this] { DIBProgressEnd.raise(); });
    }

    cDIB DIB;

    /// Progress and end of the surface's own long operations.
    Event<std::int32_t> DIBProgress;
    Event<> DIBProgressEnd;

    /// Screen pixels per picture pixel, at least 1.
    std::int32_t Zoom() const noexcept { return m_zoom; }
    void setZoom(std::int32_t value) noexcept { m_zoom = value < 1 ? 1 : value; }

 private:
    std::int32_t m_zoom = 1;
};

}  // namespace mobrel
