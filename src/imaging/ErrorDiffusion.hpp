// SPDX-License-Identifier: MIT
// The two ways in which a quantisation error is spread over the pixels around.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace mobrel {

/// Floyd and Steinberg's kernel straight on the pixels, at the precision of a byte: each share is
/// truncated, and each sum is limited to 0 to 255 as it is written.
class PixelDiffusion {
 public:
    /// Spreads the errors of the pixel at column x. `at` is its row, `above` the next one or null.
    /// Errors that sum to 3 or less stop here.
    static void spread(const std::array<int, 3>& errors, int x, int width, std::uint8_t* at,
                       std::uint8_t* above);
};

/// Stucki's kernel on a store of three lines of whole numbers, so that only the pixels' own values are
/// limited. The last columns and lines get less than the kernel could reach: kept.
class StoredDiffusion {
 public:
    StoredDiffusion(int width, int height);

    /// The error that has come to column x of the present line.
    std::int32_t at(int x) const { return m_lines[0][static_cast<std::size_t>(x)]; }

    /// Spreads an error of -255 to 255 from column x of line y.
    void spread(int error, int x, int y);

    /// Goes on to the next line.
    void nextLine();

 private:
    static constexpr int kShares = 12;
    using Shares = std::array<std::int32_t, kShares>;

    void add(int line, int x, std::int32_t share) {
        m_lines[static_cast<std::size_t>(line)][static_cast<std::size_t>(x)] += share;
    }
    void spreadBelow(int line, int x, const std::int32_t* shares);

    int m_width;
    int m_height;
    std::array<std::vector<std::int32_t>, 3> m_lines;
    std::vector<Shares> m_shares;  // by error + 255
};

}  // namespace mobrel
