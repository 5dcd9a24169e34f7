// SPDX-License-Identifier: MIT
#include "filters/kernels/select.hpp"

#include <algorithm>
#include <cmath>

#include "filters/kernels/point_vectors.hpp"
#include "filters/kernels/rounded_vectors.hpp"
#include "platform/Numbers.hpp"

namespace mobrel::kernels {

namespace {

// No pixel: byte 3 of a real one is 0. An overflow is an error of the pixel that meets it.
constexpr std::uint32_t kOverflow = 0xFFFFFFFF;

std::uint32_t colorized(int sum, float hue, float saturation, float luminosity) {
    const auto v = static_cast<float>(sum / 765.0);
    const auto L = static_cast<float>(static_cast<double>(v) * luminosity);
    std::uint32_t pixel = kOverflow;
    skipErrors([&] {
        const auto [R, G, B] = mHSL::HSLToRGB(hue, saturation, L);
        pixel = static_cast<std::uint32_t>(R << 16 | G << 8 | B);
    });
    return pixel;
}

/// Calls work(pixel, weight) for each pixel of the sphere. Whole vectors outside of it are passed over.
template <typename Work>
void forCandidates(std::uint8_t* row, int width, const ColourSphere& sphere, Work work) {
    constexpr std::size_t kStep = 64;
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = 0; x < count;) {
        x += sphere.pixelsOutside(row + x * 4, count - x);
        for (const std::size_t end = std::min(count, x + kStep); x < end; ++x) {
            std::uint8_t* const pixel = row + x * 4;
            const std::int32_t distance = sphere.distance(pixel);
            if (sphere.holds(distance)) work(pixel, sphere.weight(distance));
        }
    }
}

/// Each channel c becomes Round(weight (t - c) + c).
void moveTowards(std::uint8_t* pixel, const mHSL::Rgb& target, float weight) {
    const int targets[3] = {target.B, target.G, target.R};
    for (int channel = 0; channel < 3; ++channel) {
        const int c = pixel[channel];
        pixel[channel] = toByte(roundInt(static_cast<double>(weight) * (targets[channel] - c) + c));
    }
}

}  // namespace

ColorizeTable::ColorizeTable(float hue, float saturation, float luminosity) {
    for (std::size_t sum = 0; sum < m_pixels.size(); ++sum) {
        m_pixels[sum] = colorized(static_cast<int>(sum), hue, saturation, luminosity);
        m_hasErrors |= m_pixels[sum] == kOverflow;
    }
}

std::uint32_t ColorizeTable::pixelOf(int sum) const {
    const std::uint32_t pixel = m_pixels[static_cast<std::size_t>(sum)];
    if (pixel == kOverflow) throw RuntimeError(ErrorNumber::Overflow);
    return pixel;
}

void colorizeRow(std::uint8_t* row, int width, const ColorizeTable& table) {
    int x = 0;
    if (const std::uint32_t* const pixels = table.pixels()) {
        x = static_cast<int>(pixelsBySum(row, static_cast<std::size_t>(width), pixels));
    }
    for (row += std::ptrdiff_t{x} * 4; x < width; ++x, row += 4) {
        const std::uint32_t pixel = table.pixelOf(row[2] + row[1] + row[0]);
        row[0] = static_cast<std::uint8_t>(pixel);
        row[1] = static_cast<std::uint8_t>(pixel >> 8);
        row[2] = static_cast<std::uint8_t>(pixel >> 16);
    }
}

mHSL::Rgb rgbOf(std::uint32_t color) {
    return {static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(color >> 8),
            static_cast<std::uint8_t>(color >> 16)};
}

ColourSphere::ColourSphere(std::uint32_t color, std::int32_t tolerance)
    : m_centre(rgbOf(color)), m_squaredRadius(roundInt(std::pow(tolerance * 127.5 / 100, 2.0) + 1)) {}

std::size_t ColourSphere::pixelsOutside(const std::uint8_t* row, std::size_t count) const {
    const std::uint32_t centre = static_cast<std::uint32_t>(m_centre.R) << 16 |
                                 static_cast<std::uint32_t>(m_centre.G) << 8 |
                                 static_cast<std::uint32_t>(m_centre.B);
    return kernels::pixelsOutside(row, count, centre, m_squaredRadius);
}

std::int32_t ColourSphere::distance(const std::uint8_t* pixel) const {
    const int b = pixel[0] - m_centre.B;
    const int g = pixel[1] - m_centre.G;
    const int r = pixel[2] - m_centre.R;
    return b * b + g * g + r * r;
}

HueSaturationReplacement::HueSaturationReplacement(const ColourSphere& sphere, std::uint32_t colorTo,
                                                   std::int32_t hueTolerance,
                                                   std::int32_t saturationTolerance)
    : m_sphere(sphere),
      m_target(rgbOf(colorTo)),
      m_centre(mHSL::RGBToHSL(sphere.centre().R, sphere.centre().G, sphere.centre().B)),
      m_hueTolerance(static_cast<float>(hueTolerance / 20.0)),
      m_saturationTolerance(static_cast<float>(saturationTolerance / 100.0)) {}

void HueSaturationReplacement::run(std::uint8_t* row, int width) const {
    forCandidates(row, width, m_sphere, [&](std::uint8_t* pixel, float weight) {
        const auto hsl = mHSL::RGBToHSL(pixel[2], pixel[1], pixel[0]);
        const bool near = std::abs(static_cast<double>(hsl.H) - m_centre.H) <= m_hueTolerance &&
                          std::abs(static_cast<double>(hsl.S) - m_centre.S) <= m_saturationTolerance;
        if (near) moveTowards(pixel, m_target, weight);
    });
}

LuminosityReplacement::LuminosityReplacement(const ColourSphere& sphere, std::uint32_t colorTo,
                                             std::int32_t tolerance)
    : m_sphere(sphere), m_target(rgbOf(colorTo)), m_tolerance(static_cast<float>(tolerance / 100.0)) {}

void LuminosityReplacement::run(std::uint8_t* row, int width) const {
    const mHSL::Rgb centre = m_sphere.centre();
    forCandidates(row, width, m_sphere, [&](std::uint8_t* pixel, float weight) {
        const int difference = (pixel[0] - centre.B) + (pixel[1] - centre.G) + (pixel[2] - centre.R);
        if (static_cast<float>(std::abs(difference / 765.0)) <= m_tolerance)
            moveTowards(pixel, m_target, weight);
    });
}

void shiftRow(std::uint8_t* row, int width, const ColourSphere& sphere,
              const std::array<std::uint8_t, 256>& shifted) {
    forCandidates(row, width, sphere, [&](std::uint8_t* pixel, float weight) {
        for (int channel = 0; channel < 3; ++channel) {
            const int c = pixel[channel];
            pixel[channel] =
                toByte(roundInt(static_cast<double>(weight) * (shifted[pixel[channel]] - c) + c));
        }
    });
}

}  // namespace mobrel::kernels
