// SPDX-License-Identifier: MIT
// The colour conversions of the selection filters, step by step.
#pragma once

#include <cstdint>

namespace mobrel::recipes {

/// Hue in sextants from -1 to 5, saturation and luminosity from 0 to 1.
struct Hsl {
    float h = 0;
    float s = 0;
    float l = 0;

    bool operator==(const Hsl&) const = default;
};

struct Rgb {
    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;

    bool operator==(const Rgb&) const = default;
};

Hsl hslOf(Rgb color);
/// Error 6 when a channel leaves 0 to 255.
Rgb rgbOf(Hsl color);

}  // namespace mobrel::recipes
