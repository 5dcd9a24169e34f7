// SPDX-License-Identifier: MIT
// Conversion between red, green, blue and hue, saturation, luminosity in 32-bit floats.
#pragma once

#include <cstdint>

namespace mobrel::mHSL {

/// S and L run from 0 to 1. H counts sextants: red 0, yellow 1, green 2, cyan 3, blue 4, magenta 5 and
/// equally -1.
struct Hsl {
    float H = 0;
    float S = 0;
    float L = 0;
};

struct Rgb {
    std::uint8_t R = 0;
    std::uint8_t G = 0;
    std::uint8_t B = 0;

    bool operator==(const Rgb&) const = default;
};

/// H comes out from -1 to just below 5; a grey has H 0 and S 0.
Hsl RGBToHSL(std::uint8_t R, std::uint8_t G, std::uint8_t B);

/// H below 0 counts as the sextant from magenta to red. Error 6 when a channel leaves 0 to 255, which
/// takes an L above 1 or below 0.
Rgb HSLToRGB(float H, float S, float L);

/// A place on a hue slider of 240 steps as a place about red: above 200 it counts from below 0.
constexpr std::int32_t WrapHue(std::int32_t t) {
    return t > 200 ? t - 240 : t;
}

float MaxOf3(float a, float b, float c);
float MinOf3(float a, float b, float c);

}  // namespace mobrel::mHSL
