// SPDX-License-Identifier: MIT
#include "filters/kernels/convolution.hpp"

#include "filters/kernels/convolution_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// Weights for which a weighted sum stays below 2^15: 8 x 255 + 120 x 255.
bool isSmallWeight(std::int32_t w) {
    return w >= 0 && w <= 120;
}

WeightedMean weightedMean(std::int32_t weight, std::int32_t divisor) {
    return {static_cast<std::uint16_t>(weight), WordDivisor::of(static_cast<unsigned>(divisor))};
}

}  // namespace

void blurRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && blurPixels(from, to, width, weightedMean(w, w + 8))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return toByte(div(wrapAdd(s.around(), wrapMul(w, s.centre)), wrapAdd(w, 8)));
    });
}

void softenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && softenPixels(from, to, width, weightedMean(w, w + 4))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return toByte(div(wrapAdd(s.beside(), wrapMul(w, s.centre)), wrapAdd(w, 4)));
    });
}

void sharpenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w) {
    if (isSmallWeight(w) && w >= 10 && sharpenPixels(from, to, width, weightedMean(w, w - 8))) return;
    forInnerChannels(from, to, width, [=](const Window& s) {
        return clampByte(div(wrapSub(wrapMul(w, s.centre), s.around()), wrapSub(w, 8)));
    });
}

}  // namespace mobrel::kernels
