// SPDX-License-Identifier: MIT
#include "filters/kernels/edges.hpp"

#include <cmath>

#include "filters/kernels/edges_vectors.hpp"
#include "filters/kernels/factors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

void contourRow(Rows3 from, std::uint8_t* to, int width) {
    if (contourPixels(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(255 - (s.largest() - s.centre));
    });
}

void outlineRow(Rows3 from, std::uint8_t* to, int width, float k, std::int32_t shift) {
    const double strength = k;
    int first = 1;
    if (width > 2 && std::abs(strength) <= kMostFactor &&
        std::abs(static_cast<double>(shift)) <= kMostFactor) {
        first +=
            static_cast<int>(outlinePixels(from, to, static_cast<std::size_t>(width - 2), strength, shift));
    }
    forInnerChannels(from, to, first, width, [=](const Window& s) {
        const int mean = (s.beside() + s.centre) / 5;
        return clampByte(roundInt(mean - strength * (s.largest() - s.centre) + shift));
    });
}

}  // namespace mobrel::kernels
