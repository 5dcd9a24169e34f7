// SPDX-License-Identifier: MIT
#include "filters/mHSL.hpp"

#include <algorithm>

#include "platform/base/Numbers.hpp"

namespace mobrel::mHSL {

namespace {

/// A float as it takes part in an expression, and an expression as it is stored.
double wide(float value) {
    return value;
}
float store(double value) {
    return static_cast<float>(value);
}

std::uint8_t channelByte(float value) {
    return toByte(roundInt(wide(value) * 255));
}

}  // namespace

Hsl RGBToHSL(std::uint8_t R, std::uint8_t G, std::uint8_t B) {
    const float r = store(R / 255.0);
    const float g = store(G / 255.0);
    const float b = store(B / 255.0);
    const float mx = MaxOf3(r, g, b);
    const float mn = MinOf3(r, g, b);
    const double sum = wide(mx) + mn;
    const double range = wide(mx) - mn;

    Hsl hsl;
    hsl.L = store(sum / 2);
    if (mx == mn) return hsl;

    hsl.S = store(hsl.L > 0.5F ? range / (2.0 - mx - mn) : range / sum);
    const float d = store(range);
    if (r == mx) {
        hsl.H = store((wide(g) - b) / d);
    } else if (g == mx) {
        hsl.H = store(2 + (wide(b) - r) / d);
    } else {
        hsl.H = store(4 + (wide(r) - g) / d);
    }
    return hsl;
}

Rgb HSLToRGB(float H, float S, float L) {
    float r = L;
    float g = L;
    float b = L;
    if (S != 0) {
        const float m = store(L > 0.5F ? L - (1 - wide(L)) * S : (1 - wide(S)) * L);
        const float M = store(wide(L) + L - m);
        const double range = wide(M) - m;
        const auto rising = [&](double from) { return store(range * (H - from) + m); };
        const auto falling = [&](double to) { return store(m - range * (H - to)); };
        if (H < 0) {
            r = M, g = m, b = falling(0);
        } else if (H < 1) {
            r = M, g = rising(0), b = m;
        } else if (H < 2) {
            r = falling(2), g = M, b = m;
        } else if (H < 3) {
            r = m, g = M, b = rising(2);
        } else if (H < 4) {
            r = m, g = falling(4), b = M;
        } else {
            r = rising(4), g = m, b = M;
        }
    }
    return {channelByte(r), channelByte(g), channelByte(b)};
}

float MaxOf3(float a, float b, float c) {
    return std::max({a, b, c});
}
float MinOf3(float a, float b, float c) {
    return std::min({a, b, c});
}

}  // namespace mobrel::mHSL
