// SPDX-License-Identifier: MIT
// Inner loops that read the pixels around a pixel. Rows come from the unchanged picture; only the inner
// pixels, 1 to width - 2, are written.
#pragma once

#include <cstdint>
#include <optional>

namespace mobrel::kernels {

/// Three rows of the unchanged picture: y - 1, y and y + 1, each width pixels.
struct Rows3 {
    const std::uint8_t* below;
    const std::uint8_t* at;
    const std::uint8_t* above;
};

/// (the eight around + w c) div (w + 8). Error 6 outside a byte, 11 when w + 8 is 0.
void blurRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

/// (the four beside + w c) div (w + 4). Errors as blurRow.
void softenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

/// (w c - the eight around) div (w - 8), limited to a byte. Error 11 when w - 8 is 0.
void sharpenRow(Rows3 from, std::uint8_t* to, int width, std::int32_t w);

/// 255 - (the largest of the nine - c).
void contourRow(Rows3 from, std::uint8_t* to, int width);

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

/// The five-point mean, minus k times the distance to the largest of the nine, plus shift; rounded and
/// limited to a byte. Error 6 when the rounded value does not fit 32 bits.
void outlineRow(Rows3 from, std::uint8_t* to, int width, float k, std::int32_t shift);

/// The largest, or the smallest, of the plus of five pixels.
void maximumRow(Rows3 from, std::uint8_t* to, int width);
void minimumRow(Rows3 from, std::uint8_t* to, int width);

/// `count` pixels from column 0: Round(|f (c - n) + 128|), limited to a byte, n being the pixel one
/// column to the left (column 0 takes its own) in `neighbours`. `to` may be `from`. A negated f engraves.
void embossRow(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to, int count,
               float f);

}  // namespace mobrel::kernels
