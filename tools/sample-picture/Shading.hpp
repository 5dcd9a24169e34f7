// SPDX-License-Identifier: MIT
// Colours and noise to shade the sample picture with.
//
// Only sums, products, quotients and square roots are used, which every machine rounds alike; what
// looks random is an integer hash of its place.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace sample {

/// A colour whose channels go from 0 to 255 and may leave that range on the way.
struct Rgb {
    double red = 0;
    double green = 0;
    double blue = 0;
};

constexpr Rgb rgb(int value) {
    return {double(value >> 16 & 255), double(value >> 8 & 255), double(value & 255)};
}

inline Rgb mix(const Rgb& a, const Rgb& b, double share) {
    return {a.red + (b.red - a.red) * share, a.green + (b.green - a.green) * share,
            a.blue + (b.blue - a.blue) * share};
}

inline Rgb add(const Rgb& a, const Rgb& light, double strength) {
    return {a.red + light.red * strength, a.green + light.green * strength, a.blue + light.blue * strength};
}

inline double clamp01(double value) {
    return std::clamp(value, 0.0, 1.0);
}
inline double smooth(double from, double to, double value) {
    const double t = clamp01((value - from) / (to - from));
    return t * t * (3 - 2 * t);
}
inline double square(double value) {
    return value * value;
}

inline std::uint32_t hash(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^
                      static_cast<std::uint32_t>(y) * 0xD8163841U ^ seed * 0xCB1AB31FU;
    h = (h ^ h >> 15) * 0x2C1B3C6DU;
    h = (h ^ h >> 12) * 0x297A2D39U;
    return h ^ h >> 15;
}

/// A fixed number from 0 to below 1 for a place.
inline double chance(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    return static_cast<double>(hash(x, y, seed) >> 8) / 16777216.0;
}

/// Smooth hills between the chances of whole places, 0 to 1.
inline double noise(double x, double y, std::uint32_t seed) {
    const double left = std::floor(x);
    const double top = std::floor(y);
    const auto column = static_cast<std::int32_t>(left);
    const auto line = static_cast<std::int32_t>(top);
    const double u = smooth(0, 1, x - left);
    const double v = smooth(0, 1, y - top);
    const double upper = chance(column, line, seed) * (1 - u) + chance(column + 1, line, seed) * u;
    const double lower = chance(column, line + 1, seed) * (1 - u) + chance(column + 1, line + 1, seed) * u;
    return upper * (1 - v) + lower * v;
}

/// Noise of several sizes on one another, 0 to 1.
inline double clouds(double x, double y, std::uint32_t seed, int octaves) {
    double sum = 0;
    double weight = 0.5;
    double total = 0;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * noise(x, y, seed + static_cast<std::uint32_t>(i));
        total += weight;
        weight *= 0.5;
        x = x * 2 + 17;
        y = y * 2 + 5;
    }
    return sum / total;
}

struct Stop {
    double place;
    Rgb color;
};

template <std::size_t Count>
inline Rgb gradient(const std::array<Stop, Count>& stops, double place) {
    for (std::size_t i = 1; i < Count; ++i) {
        if (place < stops[i].place) {
            return mix(stops[i - 1].color, stops[i].color, smooth(stops[i - 1].place, stops[i].place, place));
        }
    }
    return stops[Count - 1].color;
}

}  // namespace sample
