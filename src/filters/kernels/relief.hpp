// SPDX-License-Identifier: MIT
// Emboss, Engrave and Relieve: the picture as a relief, lit from one side.
#pragma once

#include <cstdint>
#include <optional>

#include "filters/kernels/neighbourhood.hpp"

namespace mobrel::kernels {

/// `count` pixels from column 0: Round(|f (c - n) + 128|), limited to a byte, n being the pixel one
/// column to the left (column 0 takes its own) in `neighbours`. `to` may be `from`. A negated f engraves.
void embossRow(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to, int count,
               float f);

/// What relieveRow divides by.
class ReliefFactor {
 public:
    explicit ReliefFactor(float k);

    double k() const { return m_k; }
    /// 1 / k where a product with it rounds as a quotient by k does, whatever the pixels; else nothing.
    std::optional<double> inverse() const { return m_inverse; }

 private:
    double m_k;
    std::optional<double> m_inverse;
};

/// Round((Round(c k) + e) / k), limited to a byte; e is three pixels of the lower right minus three of
/// the upper left. Error 11 when k is 0, 6 when a rounded value does not fit 32 bits.
void relieveRow(Rows3 from, std::uint8_t* to, int width, const ReliefFactor& factor);

}  // namespace mobrel::kernels
