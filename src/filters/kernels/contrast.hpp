// SPDX-License-Identifier: MIT
// Contrast: the second pass, over rows of width pixels.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "filters/kernels/contrast_vectors.hpp"

namespace mobrel::kernels {

/// Stretches channels by f about `mean`: Round(f (c - mean) + mean), which may leave 0 to 255; the excess of
/// a clipped channel moves in halves to the other two.
class ContrastTable {
 public:
    /// Error 6 when a value does not fit 32 bits.
    ContrastTable(double f, std::int32_t mean);

    void run(std::uint8_t* row, int width) const;

 private:
    bool hasValues(const ContrastLine& line) const;

    std::array<std::int32_t, 256> m_values{};
    std::optional<ContrastLine> m_line;  // which has the same values
};

}  // namespace mobrel::kernels
