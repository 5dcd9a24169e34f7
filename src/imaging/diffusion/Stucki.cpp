// SPDX-License-Identifier: MIT
#include "imaging/diffusion/Stucki.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "imaging/WeightedGrey.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

/// The errors that have come to a row and to the two above it.
class LineErrors {
 public:
    explicit LineErrors(int width) : m_width(width) {
        for (auto& line : m_lines) line.resize(static_cast<std::size_t>(width));
    }

    std::int32_t at(int x) const { return m_lines[0][static_cast<std::size_t>(x)]; }

    /// Spreads an error of -255 to 255 from column x; `above` is how many rows the picture has there.
    void spread(int error, int x, int above) {
        const int eight = 8 * error / 42;
        const int four = 4 * error / 42;
        const int two = 2 * error / 42;
        const int one = error / 42;
        if (x < m_width - 2) add(0, x + 1, eight);
        if (x < m_width - 3) add(0, x + 2, four);
        if (above > 1) spreadAbove(1, x, eight, four, two);
        if (above > 2) spreadAbove(2, x, four, two, one);
    }

    void nextRow() {
        std::rotate(m_lines.begin(), m_lines.begin() + 1, m_lines.end());
        std::ranges::fill(m_lines.back(), 0);
    }

 private:
    void add(std::size_t line, int x, std::int32_t share) {
        m_lines[line][static_cast<std::size_t>(x)] += share;
    }
    /// Shares for column x, for those beside it, and for those two columns from it.
    void spreadAbove(std::size_t line, int x, int own, int beside, int far) {
        if (x > 1) add(line, x - 2, far);
        if (x > 0) add(line, x - 1, beside);
        add(line, x, own);
        if (x < m_width - 2) add(line, x + 1, beside);
        if (x < m_width - 3) add(line, x + 2, far);
    }

    int m_width;
    std::array<std::vector<std::int32_t>, 3> m_lines;
};

}  // namespace

void diffuseStucki(cDIB& DIB, const Paint& paint, int threshold, std::int32_t weight,
                   const RowDone& rowDone) {
    LineErrors errors(DIB.Width());
    const auto reduceRow = [&](RowBand& row) {
        for (int x = 0; x < row.width(); ++x) {
            const int v = clampByte(plainGrey(row.pixel(0, x)) + div(errors.at(x) * 10, weight));
            const bool isWhite = v >= threshold;
            row.set(0, x, isWhite ? 1 : 0);
            errors.spread(v - (isWhite ? 255 : 0), x, row.height() - 1 - row.firstRow());
        }
        errors.nextRow();
    };
    CarriedErrors<float> carried(DIB.Width());
    diffuse(
        DIB, paint, reduceRow,
        [&](std::span<RowBand> bands) { diffuseBlackAndWhite(bands, threshold, weight, carried); }, rowDone);
}

}  // namespace mobrel
