// SPDX-License-Identifier: MIT
// The two ways in which a quantisation error is spread over the pixels around: in waves, and pixel by pixel
// on a processor without vectors.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "imaging/DiffusionWave.hpp"
#include "imaging/WaveBand.hpp"

namespace mobrel {

/// Floyd and Steinberg's kernel straight on the pixels, at the precision of a byte: each share is
/// truncated, and each sum is limited to 0 to 255 as it is written. Errors that sum to 3 or less stop at
/// their pixel. The bands of a picture are reduced in their order.
class PixelDiffusion {
 public:
    explicit PixelDiffusion(int width) : m_errors(width) {}

    /// By a table of 4,096 colours, 0x00RRGGBB with their indices above, in the order of a ColourCube.
    void reduceColours(std::span<WaveBand> bands, const std::uint32_t* table);
    /// By weighted greys.
    void reduceGreys(std::span<WaveBand> bands, const GreyLevels& levels);

 private:
    Handover<std::uint32_t> m_errors;
};

/// Stucki's kernel on a store of three lines of whole numbers, so that only the pixels' own values are
/// limited. The last columns and lines get less than the kernel could reach: kept. The bands of a picture
/// are reduced in their order.
class StoredDiffusion {
 public:
    StoredDiffusion(int width, const StoredRule& rule);

    void reduce(std::span<WaveBand> bands);

 private:
    static constexpr int kShares = 12;
    using Shares = std::array<std::int32_t, kShares>;

    void reduceRow(WaveBand& band);
    /// Spreads an error of -255 to 255 from column x of the band's row.
    void spread(int error, int x, const WaveBand& band);
    void spreadBelow(int line, int x, const std::int32_t* shares, int width);
    void add(int line, int x, std::int32_t share) {
        m_lines[static_cast<std::size_t>(line)][static_cast<std::size_t>(x)] += share;
    }

    StoredRule m_rule;
    Handover<float> m_errors;
    std::array<std::vector<std::int32_t>, 3> m_lines;  // used without vectors
    std::vector<Shares> m_shares;                      // by error + 255
};

}  // namespace mobrel
