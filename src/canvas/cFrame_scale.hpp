// SPDX-License-Identifier: MIT
// Numbers on the way between picture and view, which stay in 32 bits whatever the zoom.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// The number, or the nearest one that fits 32 bits. No picture is that large on a screen, so nothing that
/// can be seen changes.
constexpr std::int32_t limited(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}
inline std::int32_t limited(double wholeNumber) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(wholeNumber > Limits::min())) return Limits::min();
    return wholeNumber < Limits::max() ? static_cast<std::int32_t>(wholeNumber) : Limits::max();
}

/// roundInt that stops at the ends of 32 bits.
inline std::int32_t roundLimited(double value) {
    return limited(std::nearbyint(value));
}

inline Rect moved(const Rect& rect, std::int64_t x, std::int64_t y) {
    return {limited(rect.left + x), limited(rect.top + y), limited(rect.right + x), limited(rect.bottom + y)};
}

}  // namespace mobrel
