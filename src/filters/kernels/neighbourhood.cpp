// SPDX-License-Identifier: MIT
#include "filters/kernels/neighbourhood.hpp"

#include <algorithm>
#include <cmath>

#include "filters/kernels/neighbourhood_bytes.hpp"
#include "filters/kernels/rounded_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// One channel of a pixel and of the eight around it.
struct Window {
    int belowLeft, below, belowRight;
    int left, centre, right;
    int aboveLeft, above, aboveRight;

    int beside() const { return below + above + right + left; }
    int around() const { return beside() + belowLeft + belowRight + aboveLeft + aboveRight; }
    int largest() const {
        return std::max({belowLeft, below, belowRight, left, centre, right, aboveLeft, above, aboveRight});
    }
};

Window windowAt(const Rows3& rows, int at) {
    return {rows.below[at - 4], rows.below[at],     rows.below[at + 4], rows.at[at - 4],   rows.at[at],
            rows.at[at + 4],    rows.above[at - 4], rows.above[at],     rows.above[at + 4]};
}

/// Writes rule(window) to the three channels of each inner pixel from column `first` on.
template <typename Rule>
void forInnerChannels(const Rows3& from, std::uint8_t* to, int first, int width, Rule rule) {
    for (int x = first; x < width - 1; ++x) {
        for (int at = x * 4; at < x * 4 + 3; ++at) to[at] = rule(windowAt(from, at));
    }
}

/// The same for all of them.
template <typename Rule>
void forInnerChannels(const Rows3& from, std::uint8_t* to, int width, Rule rule) {
    forInnerChannels(from, to, 1, width, rule);
}

/// Weights for which a weighted sum stays below 2^15: 8 x 255 + 120 x 255.
bool isSmallWeight(std::int32_t w) {
    return w >= 0 && w <= 120;
}

WeightedMean weightedMean(std::int32_t weight, std::int32_t divisor) {
    return {static_cast<std::uint16_t>(weight), WordDivisor::of(static_cast<unsigned>(divisor))};
}

}  // namespace

void blurRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && blurBytes(from, to, width, weightedMean(w, w + 8))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return toByte(div(wrapAdd(s.around(), wrapMul(w, s.centre)), wrapAdd(w, 8)));
    });
}

void softenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && softenBytes(from, to, width, weightedMean(w, w + 4))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return toByte(div(wrapAdd(s.beside(), wrapMul(w, s.centre)), wrapAdd(w, 4)));
    });
}

void sharpenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && w >= 10 && sharpenBytes(from, to, width, weightedMean(w, w - 8))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return clampByte(div(wrapSub(wrapMul(w, s.centre), s.around()), wrapSub(w, 8)));
    });
}

void contourRow(Rows3 from, std::uint8_t* to, int width) {
    if (contourBytes(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(255 - (s.largest() - s.centre));
    });
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
            relievedPixels(from, to, static_cast<std::size_t>(width - 2), scale, *factor.inverse()));
    }
    forInnerChannels(from, to, first, width, [=](const Window& s) {
        if (scale == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
        const std::int32_t t = roundInt(s.centre * scale);
        const int e = s.belowRight + s.right + s.below - s.aboveLeft - s.above - s.left;
        return clampByte(roundInt(wrapAdd(t, e) / scale));
    });
}

void outlineRow(Rows3 from, std::uint8_t* to, int width, float k, std::int32_t shift) {
    const double strength = k;
    int first = 1;
    if (width > 2 && std::abs(strength) <= kMostFactor &&
        std::abs(static_cast<double>(shift)) <= kMostFactor) {
        first +=
            static_cast<int>(outlinedPixels(from, to, static_cast<std::size_t>(width - 2), strength, shift));
    }
    forInnerChannels(from, to, first, width, [=](const Window& s) {
        const int mean = (s.beside() + s.centre) / 5;
        return clampByte(roundInt(mean - strength * (s.largest() - s.centre) + shift));
    });
}

void maximumRow(Rows3 from, std::uint8_t* to, int width) {
    if (maximumBytes(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(std::max({s.below, s.left, s.centre, s.right, s.above}));
    });
}

void minimumRow(Rows3 from, std::uint8_t* to, int width) {
    if (minimumBytes(from, to, width)) return;
    forInnerChannels(from, to, width, [](const Window& s) {
        return static_cast<std::uint8_t>(std::min({s.below, s.left, s.centre, s.right, s.above}));
    });
}

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
            embossedPixels(from + 4, neighbours, to + 4, static_cast<std::size_t>(count - 1), strength));
    }
    for (; x < count; ++x) raise(x);
}

}  // namespace mobrel::kernels
