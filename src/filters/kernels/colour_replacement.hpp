// SPDX-License-Identifier: MIT
// ReplaceHS, ReplaceL and Shift: colours near a given one move, fading with the distance.
#pragma once

#include <cstdint>

#include "filters/mHSL.hpp"

namespace mobrel::kernels {

/// A sphere of colours about a centre; a colour's weight falls from 1 at the centre to 0 at the edge.
class ColourSphere {
 public:
    /// `color` is 0x00BBGGRR. The squared radius is Round((tolerance x 1.275)^2 + 1). Error 6 when it
    /// does not fit 32 bits.
    ColourSphere(std::uint32_t color, std::int32_t tolerance);

    const mHSL::Rgb& centre() const { return m_centre; }
    std::int32_t squaredRadius() const { return m_squaredRadius; }
    /// The squared distance of a pixel to the centre.
    std::int32_t distance(const std::uint8_t* pixel) const;
    bool holds(std::int32_t distance) const { return distance <= m_squaredRadius; }
    float weight(std::int32_t distance) const {
        return static_cast<float>(1 - static_cast<double>(distance) / m_squaredRadius);
    }

 private:
    mHSL::Rgb m_centre;
    std::int32_t m_squaredRadius;
};

mHSL::Rgb rgbOf(std::uint32_t color);

/// Hues and saturations that differ from a centre's by the tolerances at most.
struct HueSaturationRange {
    mHSL::Hsl centre;
    float hueTolerance;
    float saturationTolerance;

    bool holds(const mHSL::Hsl& hsl) const;
};

/// Pixels of the sphere whose hue and saturation lie near the centre's move towards a colour.
class HueSaturationReplacement {
 public:
    HueSaturationReplacement(const ColourSphere& sphere, std::uint32_t colorTo, std::int32_t hueTolerance,
                             std::int32_t saturationTolerance);
    void run(std::uint8_t* row, int width) const;

 private:
    ColourSphere m_sphere;
    mHSL::Rgb m_target;
    HueSaturationRange m_range;
};

/// Pixels of the sphere whose luminosity lies near the centre's move towards a colour.
class LuminosityReplacement {
 public:
    LuminosityReplacement(const ColourSphere& sphere, std::uint32_t colorTo, std::int32_t tolerance);
    void run(std::uint8_t* row, int width) const;

 private:
    ColourSphere m_sphere;
    mHSL::Rgb m_target;
    std::int32_t m_mostDifference;
};

/// Pixels of the sphere move by a constant, limited to a byte and fading with the distance.
void shiftRow(std::uint8_t* row, int width, const ColourSphere& sphere, std::int32_t increment);

}  // namespace mobrel::kernels
