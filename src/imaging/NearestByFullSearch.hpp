// SPDX-License-Identifier: MIT
// Exact nearest-colour search in a palette, through all of its entries.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// Levels of each channel in the colour cube; level l stands for the value 17 l.
constexpr int kCubeLevels = 16;

/// A palette index for each of the 4,096 colours of the cube, at (blue x 16 + green) x 16 + red.
using ColourCube = std::array<std::uint8_t, kCubeLevels * kCubeLevels * kCubeLevels>;

/// The place in the cube of the colour nearest to a pixel: of each channel Round(v / 17).
constexpr int cubePlace(const std::uint8_t* pixel) {
    const auto level = [](int v) { return (v + 8) / 17; };  // no v lies between two levels
    return (level(pixel[0]) * kCubeLevels + level(pixel[1])) * kCubeLevels + level(pixel[2]);
}

/// Answers with the entry of least squared distance in red, green and blue, the lowest index among
/// equals. Keeps the colours it was made with; 1 to 256 of them.
class NearestByFullSearch {
 public:
    explicit NearestByFullSearch(std::span<const RgbQuad> entries)
        : m_entries(entries.begin(), entries.end()) {}

    std::uint8_t index(std::uint8_t red, std::uint8_t green, std::uint8_t blue) const;

    /// All answers for the cube at once.
    ColourCube cube() const;

 private:
    std::vector<RgbQuad> m_entries;
};

}  // namespace mobrel
