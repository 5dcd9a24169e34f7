// SPDX-License-Identifier: MIT
#include "filters/kernels/rank.hpp"

#include <algorithm>

#include "filters/kernels/rank_vectors.hpp"

namespace mobrel::kernels {

void maximumRow(Rows3 from, std::uint8_t* to, int width) {
    if (dilatePixels(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(std::max({s.below, s.left, s.centre, s.right, s.above}));
    });
}

void minimumRow(Rows3 from, std::uint8_t* to, int width) {
    if (erodePixels(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(std::min({s.below, s.left, s.centre, s.right, s.above}));
    });
}

}  // namespace mobrel::kernels
