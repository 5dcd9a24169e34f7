// SPDX-License-Identifier: MIT
// Error diffusion by the kernel of Stucki.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "imaging/diffusion/ErrorDiffusion.hpp"

namespace mobrel {

/// Black and white by a threshold. The kernel, in forty-seconds, spreads whole numbers that are kept beside
/// the pixels, so that only the pixels' own values are limited. The rows are scanned from the left, and the
/// next ones are those above:
///
///     1  2  4  2  1
///     2  4  8  4  2
///           x  8  4
///
/// The last columns and rows get less than the kernel could reach: kept.
class Stucki : public ErrorDiffusion {
 public:
    /// For a threshold of 0 to 255; of an error 10 / weight takes effect, and the weight is not 0.
    Stucki(int width, int threshold, std::int32_t weight);

 private:
    void reduceRow(RowBand& row) override;
    void reduceBands(std::span<RowBand> bands) override;
    /// Spreads an error of -255 to 255 from column x of the row.
    void spread(int error, int x, const RowBand& row);
    /// Shares for a later row: `own` for column x, `beside` and `far` for those one and two columns from it.
    void spreadAbove(std::size_t line, int x, int own, int beside, int far);
    void add(std::size_t line, int x, std::int32_t share) {
        m_lines[line][static_cast<std::size_t>(x)] += share;
    }

    int m_width;
    int m_threshold;
    std::int32_t m_weight;
    std::array<std::vector<std::int32_t>, 3> m_lines;  // of the row and the next two, pixel by pixel
    CarriedErrors<float> m_errors;                     // in wavefronts
};

/// The same in wavefronts.
extern const VectorKernel<void(std::span<RowBand>, int threshold, std::int32_t weight, CarriedErrors<float>&)>
    diffuseBlackAndWhite;

}  // namespace mobrel
