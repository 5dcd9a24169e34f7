// SPDX-License-Identifier: MIT
#include "filters/kernels/colour_replacement.hpp"

#include <cmath>
#include <cstdlib>

#include "filters/kernels/colour_replacement_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// Calls work(pixel, weight) for each pixel of the sphere from column `first` on.
template <typename Work>
void forCandidates(std::uint8_t* row, std::size_t first, int width, const ColourSphere& sphere, Work work) {
    for (std::size_t x = first; x < static_cast<std::size_t>(width); ++x) {
        std::uint8_t* const pixel = row + x * 4;
        const std::int32_t distance = sphere.distance(pixel);
        if (sphere.holds(distance)) work(pixel, sphere.weight(distance));
    }
}

/// Round(weight (t - c) + c), which lies between c and t.
std::uint8_t moved(int c, int t, float weight) {
    return toByte(roundInt(static_cast<double>(weight) * (t - c) + c));
}

void moveTowards(std::uint8_t* pixel, const mHSL::Rgb& target, float weight) {
    pixel[0] = moved(pixel[0], target.B, weight);
    pixel[1] = moved(pixel[1], target.G, weight);
    pixel[2] = moved(pixel[2], target.R, weight);
}

int sumOf(const mHSL::Rgb& colour) {
    return colour.B + colour.G + colour.R;
}

/// The largest difference between two sums of channels that is no difference of luminosity above the
/// tolerance; -1 when there is none.
std::int32_t mostDifferenceWithin(float tolerance) {
    std::int32_t most = -1;
    while (most < 765 && static_cast<float>((most + 1) / 765.0) <= tolerance) ++most;
    return most;
}

}  // namespace

mHSL::Rgb rgbOf(std::uint32_t color) {
    return {static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(color >> 8),
            static_cast<std::uint8_t>(color >> 16)};
}

ColourSphere::ColourSphere(std::uint32_t color, std::int32_t tolerance)
    : m_centre(rgbOf(color)), m_squaredRadius(roundInt(std::pow(tolerance * 127.5 / 100, 2.0) + 1)) {}

std::int32_t ColourSphere::distance(const std::uint8_t* pixel) const {
    const int b = pixel[0] - m_centre.B;
    const int g = pixel[1] - m_centre.G;
    const int r = pixel[2] - m_centre.R;
    return b * b + g * g + r * r;
}

bool HueSaturationRange::holds(const mHSL::Hsl& hsl) const {
    return std::abs(static_cast<double>(hsl.H) - centre.H) <= hueTolerance &&
           std::abs(static_cast<double>(hsl.S) - centre.S) <= saturationTolerance;
}

HueSaturationReplacement::HueSaturationReplacement(const ColourSphere& sphere, std::uint32_t colorTo,
                                                   std::int32_t hueTolerance,
                                                   std::int32_t saturationTolerance)
    : m_sphere(sphere),
      m_target(rgbOf(colorTo)),
      m_range{mHSL::RGBToHSL(sphere.centre().R, sphere.centre().G, sphere.centre().B),
              static_cast<float>(hueTolerance / 20.0), static_cast<float>(saturationTolerance / 100.0)} {}

void HueSaturationReplacement::run(std::uint8_t* row, int width) const {
    const std::size_t done = replaceByHue(row, static_cast<std::size_t>(width), m_sphere, m_target, m_range);
    forCandidates(row, done, width, m_sphere, [&](std::uint8_t* pixel, float weight) {
        const bool isNear = m_range.holds(mHSL::RGBToHSL(pixel[2], pixel[1], pixel[0]));
        if (isNear) moveTowards(pixel, m_target, weight);
    });
}

LuminosityReplacement::LuminosityReplacement(const ColourSphere& sphere, std::uint32_t colorTo,
                                             std::int32_t tolerance)
    : m_sphere(sphere),
      m_target(rgbOf(colorTo)),
      m_mostDifference(mostDifferenceWithin(static_cast<float>(tolerance / 100.0))) {}

void LuminosityReplacement::run(std::uint8_t* row, int width) const {
    const std::size_t done =
        replaceBySum(row, static_cast<std::size_t>(width), m_sphere, m_target, m_mostDifference);
    forCandidates(row, done, width, m_sphere, [&](std::uint8_t* pixel, float weight) {
        const int difference = pixel[0] + pixel[1] + pixel[2] - sumOf(m_sphere.centre());
        if (std::abs(difference) <= m_mostDifference) moveTowards(pixel, m_target, weight);
    });
}

void shiftRow(std::uint8_t* row, int width, const ColourSphere& sphere, std::int32_t increment) {
    const std::size_t done = shiftInSphere(row, static_cast<std::size_t>(width), sphere, increment);
    forCandidates(row, done, width, sphere, [&](std::uint8_t* pixel, float weight) {
        for (int channel = 0; channel < 3; ++channel) {
            const int c = pixel[channel];
            pixel[channel] = moved(c, clampByte(wrapAdd(c, increment)), weight);
        }
    });
}

}  // namespace mobrel::kernels
