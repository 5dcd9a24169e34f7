// SPDX-License-Identifier: MIT
// Filters that work through colour, and the colour conversions they use.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "support/FilterRecipes.hpp"
#include "support/HslRecipe.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kBlue;
using test::kChannels;
using test::kGreen;
using test::kRed;
using test::Pixel;

Rgb rgbOfPixel(const Pixel& p) {
    return {p[kRed], p[kGreen], p[kBlue]};
}

Rgb split(std::int32_t Color) {
    return {static_cast<std::uint8_t>(Color), static_cast<std::uint8_t>(Color >> 8),
            static_cast<std::uint8_t>(Color >> 16)};
}

std::uint8_t channelByte(float value) {
    return byteOf(rounded(double{value} * 255));
}

/// The colours in reach of one colour, and how much of a change they take.
struct Selection {
    Rgb center;
    std::int32_t T;

    Selection(std::int32_t ColorFrom, std::int32_t Tolerance)
        : center(split(ColorFrom)), T(rounded(std::pow(Tolerance * 127.5 / 100, 2.0) + 1)) {}

    std::int32_t distance(const Pixel& p) const {
        const int blue = p[kBlue] - center.b;
        const int green = p[kGreen] - center.g;
        const int red = p[kRed] - center.r;
        return blue * blue + green * green + red * red;
    }
    bool has(const Pixel& p) const { return distance(p) <= T; }
    float weight(const Pixel& p) const { return static_cast<float>(1 - distance(p) / double(T)); }
};

/// Moves each channel of the pixel towards the colour by the part f of the way.
void mix(Pixel& p, Rgb target, float f) {
    const std::array<std::uint8_t, 3> targets = {target.b, target.g, target.r};
    for (const std::size_t c : kChannels) p[c] = byteOf(rounded(double{f} * (targets[c] - p[c]) + p[c]));
}

}  // namespace

Hsl hslOf(Rgb color) {
    const float r = static_cast<float>(color.r / 255.0);
    const float g = static_cast<float>(color.g / 255.0);
    const float b = static_cast<float>(color.b / 255.0);
    const float largest = std::max({r, g, b});
    const float smallest = std::min({r, g, b});
    const double mx = largest;
    const double mn = smallest;

    const float L = static_cast<float>((mx + mn) / 2);
    if (largest == smallest) return {0, 0, L};
    const float S =
        L > 0.5 ? static_cast<float>((mx - mn) / (2 - mx - mn)) : static_cast<float>((mx - mn) / (mx + mn));
    const float d = static_cast<float>(mx - mn);
    if (r == largest) return {static_cast<float>((double{g} - b) / d), S, L};
    if (g == largest) return {static_cast<float>(2 + (double{b} - r) / d), S, L};
    return {static_cast<float>(4 + (double{r} - g) / d), S, L};
}

Rgb rgbOf(Hsl color) {
    const double H = color.h;
    const double S = color.s;
    const double L = color.l;
    if (color.s == 0) return {channelByte(color.l), channelByte(color.l), channelByte(color.l)};

    const float low = static_cast<float>(L > 0.5 ? L - (1 - L) * S : (1 - S) * L);
    const double m = low;
    const float high = static_cast<float>(L + L - m);
    const double M = high;
    float r = low;
    float g = low;
    float b = low;
    if (H < 0) {
        r = high;
        b = static_cast<float>(m - (M - m) * H);
    } else if (H < 1) {
        r = high;
        g = static_cast<float>((M - m) * H + m);
    } else if (H < 2) {
        r = static_cast<float>(m - (M - m) * (H - 2));
        g = high;
    } else if (H < 3) {
        g = high;
        b = static_cast<float>((M - m) * (H - 2) + m);
    } else if (H < 4) {
        g = static_cast<float>(m - (M - m) * (H - 4));
        b = high;
    } else {
        r = static_cast<float>((M - m) * (H - 4) + m);
        b = high;
    }
    return {channelByte(r), channelByte(g), channelByte(b)};
}

void colorize(Picture& D, float Hue, float Saturation, float Luminosity, EventLog& log) {
    if (D.isEmpty()) return;
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            const float v = static_cast<float>((p[kRed] + p[kGreen] + p[kBlue]) / 765.0);
            const float L = static_cast<float>(double{v} * Luminosity);
            const Rgb color = rgbOf({Hue, Saturation, L});
            p[kBlue] = color.b;
            p[kGreen] = color.g;
            p[kRed] = color.r;
        }
        log.progress(y);
    }
    log.progressEnd();
}

void replaceHS(Picture& D, std::int32_t ColorFrom, std::int32_t ColorTo, std::int32_t Tolerance,
               std::int32_t HTolerance, std::int32_t STolerance, EventLog& log) {
    if (D.isEmpty()) return;
    const Selection selection(ColorFrom, Tolerance);
    const Hsl from = hslOf(selection.center);
    const float HT = static_cast<float>(HTolerance / 20.0);
    const float ST = static_cast<float>(STolerance / 100.0);
    const Rgb target = split(ColorTo);
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            if (!selection.has(p)) continue;
            const Hsl hsl = hslOf(rgbOfPixel(p));
            if (std::abs(double{hsl.h} - from.h) > HT || std::abs(double{hsl.s} - from.s) > ST) continue;
            mix(p, target, selection.weight(p));
        }
        log.progress(y);
    }
    log.progressEnd();
}

void replaceL(Picture& D, std::int32_t ColorFrom, std::int32_t ColorTo, std::int32_t Tolerance,
              std::int32_t LTolerance, EventLog& log) {
    if (D.isEmpty()) return;
    const Selection selection(ColorFrom, Tolerance);
    const Rgb from = selection.center;
    const Rgb target = split(ColorTo);
    const float LT = static_cast<float>(LTolerance / 100.0);
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            if (!selection.has(p)) continue;
            const int sum = (p[kBlue] - from.b) + (p[kGreen] - from.g) + (p[kRed] - from.r);
            const float v = static_cast<float>(std::abs(sum / 765.0));
            if (v > LT) continue;
            mix(p, target, selection.weight(p));
        }
        log.progress(y);
    }
    log.progressEnd();
}

void shift(Picture& D, std::int32_t ColorFrom, std::int32_t Inc, std::int32_t Tolerance, EventLog& log) {
    if (D.isEmpty()) return;
    const Selection selection(ColorFrom, Tolerance);
    std::array<std::int16_t, 256> TS{};
    for (int i = 0; i <= 255; ++i) TS[static_cast<std::size_t>(i)] = clamped(wrap(std::int64_t{i} + Inc));
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            if (!selection.has(p)) continue;
            const float f = selection.weight(p);
            for (const std::size_t c : kChannels) {
                const float e = static_cast<float>(TS[p[c]] - p[c]);
                const float old = p[c];
                p[c] = byteOf(rounded(double{e} * f + old));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

}  // namespace mobrel::recipes
