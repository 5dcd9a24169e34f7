// SPDX-License-Identifier: MIT
// The grey of a pixel, weighted by how bright its channels look, and the plain mean of the channels.
#pragma once

#include <array>
#include <cstdint>

#include "platform/base/Numbers.hpp"

namespace mobrel {

/// weight x value for every byte value, in double precision.
class WeightTable {
 public:
    constexpr explicit WeightTable(double weight) {
        for (int i = 0; i < 256; ++i) m_products[static_cast<std::size_t>(i)] = weight * i;
    }
    constexpr double operator[](std::uint8_t value) const { return m_products[value]; }

 private:
    std::array<double, 256> m_products{};
};

inline constexpr WeightTable kBlueWeight{0.071};
inline constexpr WeightTable kGreenWeight{0.707};
inline constexpr WeightTable kRedWeight{0.222};

/// Round(0.707 G + 0.071 B + 0.222 R), summed in that order: a sum may lie on a rounding tie.
inline std::uint8_t weightedGrey(const std::uint8_t* pixel) {
    return toByte(roundInt(kGreenWeight[pixel[1]] + kBlueWeight[pixel[0]] + kRedWeight[pixel[2]]));
}

/// (R + G + B) div 3.
inline int plainGrey(const std::uint8_t* pixel) {
    return (pixel[2] + pixel[1] + pixel[0]) / 3;
}

}  // namespace mobrel
