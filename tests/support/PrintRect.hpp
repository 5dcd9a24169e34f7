// SPDX-License-Identifier: MIT
// How failed comparisons show a rectangle: left, top, right, bottom.
#pragma once

#include <ostream>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

inline void PrintTo(const Rect& rect, std::ostream* out) {
    *out << '(' << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom << ')';
}

}  // namespace mobrel
