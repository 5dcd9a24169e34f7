// SPDX-License-Identifier: MIT
#include "filters/kernels/relief.hpp"

#include <cmath>

#include "filters/kernels/factors.hpp"
#include "filters/kernels/relief_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

void embossRow(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to, int count,
               float f) {
    const double strength = f;
    const auto raise = [&](int x) {
        const std::uint8_t* neighbour = neighbours + std::ptrdiff_t{x == 0 ? 0 : x - 1} * 4;
        for (int channel = 0; channel < 3; ++channel) {
            const int difference = from[x * 4 + channel] - neighbour[channel];
            to[x * 4 + channel] = clampByte(roundInt(std::abs(strength * difference + 128)));
        }
    };
    if (count < 1) return;
    raise(0);
    int x = 1;
    if (std::abs(strength) <= kMostFactor) {
        x += static_cast<int>(
            embossPixels(from + 4, neighbours, to + 4, static_cast<std::size_t>(count - 1), strength));
    }
    for (; x < count; ++x) raise(x);
}

ReliefFactor::ReliefFactor(float k) : m_k(k) {
    constexpr double kMostChecked = 100;  // beyond, trying all values costs more than the quotients
    if (k == 0 || std::abs(m_k) > kMostChecked) return;
    const double inverse = 1 / m_k;
    const int reach = static_cast<int>(std::ceil(std::abs(m_k) * 255)) + 3 * 255;
    for (int value = -reach; value <= reach; ++value) {
        if (std::nearbyint(value * inverse) != std::nearbyint(value / m_k)) return;
    }
    m_inverse = inverse;
}

void relieveRow(Rows3 from, std::uint8_t* to, int width, const ReliefFactor& factor) {
    const double scale = factor.k();
    int first = 1;
    if (factor.inverse() && width > 2) {
        first += static_cast<int>(
            relievePixels(from, to, static_cast<std::size_t>(width - 2), scale, *factor.inverse()));
    }
    forInnerChannels(from, to, first, width, [=](const Window& s) {
        if (scale == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
        const std::int32_t t = roundInt(s.centre * scale);
        const int e = s.belowRight + s.right + s.below - s.aboveLeft - s.above - s.left;
        return clampByte(roundInt(wrapAdd(t, e) / scale));
    });
}

}  // namespace mobrel::kernels
