// SPDX-License-Identifier: MIT
// The same in vectors. Each writes the inner pixels of a row and says so, or writes nothing and
// says false where the row is too short for a vector.
#pragma once

#include <bit>
#include <cstdint>
#include <optional>

#include "filters/kernels/neighbourhood.hpp"

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

bool maximumBytes(const Rows3& from, std::uint8_t* to, int width);
bool minimumBytes(const Rows3& from, std::uint8_t* to, int width);
bool contourBytes(const Rows3& from, std::uint8_t* to, int width);
bool blurBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean);
bool softenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean);
bool sharpenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean);

}  // namespace mobrel::kernels
