// SPDX-License-Identifier: MIT
// Convolution in vectors. Each kernel writes the inner pixels of a row and says so, or writes nothing and
// says false where the row is too short for a vector.
#pragma once

#include <bit>
#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"
#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// Division of numbers below 2^15 by multiplication: n div d = (n factor >> 16) >> shift, exactly.
///
/// Source: Granlund and Montgomery, "Division by Invariant Integers using Multiplication", 1994.
struct WordDivisor {
    std::uint16_t factor = 0;
    int shift = 0;

    /// For d from 2 to 2^15.
    static constexpr WordDivisor of(unsigned d) {
        const int log = static_cast<int>(std::bit_width(d)) - 1;
        if (std::has_single_bit(d)) return {1U << 15, log - 1};
        return {static_cast<std::uint16_t>((1U << (16 + log)) / d + 1), log};
    }
};

struct WeightedMean {
    std::uint16_t weight;
    WordDivisor divisor;
};

/// blurRow, softenRow and sharpenRow, for weighted sums below 2^15.
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean)> blurPixels;
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean)>
    softenPixels;
extern const VectorKernel<bool(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean)>
    sharpenPixels;

}  // namespace mobrel::kernels
