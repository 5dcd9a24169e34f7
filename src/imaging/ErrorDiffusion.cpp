// SPDX-License-Identifier: MIT
#include "imaging/ErrorDiffusion.hpp"

#include <algorithm>
#include <cstdlib>

#include "imaging/NearestColour.hpp"
#include "imaging/WeightedGrey.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kLeastSpread = 4;

using ChannelErrors = std::array<int, 3>;

void addShare(std::uint8_t* pixel, const ChannelErrors& errors, int weight) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
        pixel[channel] = clampByte(pixel[channel] + errors[channel] * weight / 16);
    }
}

/// `above` is the pixel in the next row, or null.
void spreadOverPixels(const ChannelErrors& errors, std::uint8_t* pixel, std::uint8_t* above, bool hasLeft,
                      bool hasRight) {
    if (std::abs(errors[0]) + std::abs(errors[1]) + std::abs(errors[2]) < kLeastSpread) return;
    if (hasRight) addShare(pixel + 4, errors, 7);
    if (above == nullptr) return;
    addShare(above, errors, 5);
    if (hasRight) addShare(above + 4, errors, 1);
    if (hasLeft) addShare(above - 4, errors, 3);
}

/// Reduces a band of one row: entryOf(pixel) is what a pixel becomes, a colour with its index above it.
template <typename EntryOf>
void reducePixels(WaveBand& band, EntryOf entryOf) {
    const bool hasAbove = band.firstRow() + 1 < band.height();
    for (int x = 0; x < band.width(); ++x) {
        std::uint8_t* const pixel = band.pixel(0, x);
        const std::uint32_t entry = entryOf(pixel);
        const auto error = [&](int channel) {
            return pixel[channel] - static_cast<int>(entry >> channel * 8 & 0xFF);
        };
        const ChannelErrors errors = {error(0), error(1), error(2)};
        band.set(0, x, static_cast<std::uint8_t>(entry >> 24));
        spreadOverPixels(errors, pixel, hasAbove ? band.pixel(1, x) : nullptr, x > 0, x < band.width() - 1);
    }
}

}  // namespace

void PixelDiffusion::reduceColours(std::span<WaveBand> bands, const std::uint32_t* table) {
    if (waveRows() > 0) return diffuseColours(bands, table, m_errors);
    reducePixels(bands.front(), [table](const std::uint8_t* pixel) { return table[cubePlace(pixel)]; });
}

void PixelDiffusion::reduceGreys(std::span<WaveBand> bands, const GreyLevels& levels) {
    if (waveRows() > 0) return diffuseGreys(bands, levels, m_errors);
    reducePixels(bands.front(), [&levels](std::uint8_t* pixel) {
        const std::uint8_t grey = weightedGrey(pixel);
        pixel[0] = pixel[1] = pixel[2] = grey;
        return levels.index(grey) * levels.entry;
    });
}

StoredDiffusion::StoredDiffusion(int width, const StoredRule& rule) : m_rule(rule), m_errors(width) {
    if (waveRows() > 0) return;
    for (auto& line : m_lines) line.assign(static_cast<std::size_t>(width), 0);
    constexpr Shares kWeights = {8, 4, 2, 4, 8, 4, 2, 1, 2, 4, 2, 1};
    for (int error = -255; error <= 255; ++error) {
        Shares& shares = m_shares.emplace_back();
        std::ranges::transform(kWeights, shares.begin(),
                               [=](std::int32_t weight) { return weight * error / 42; });
    }
}

void StoredDiffusion::reduce(std::span<WaveBand> bands) {
    if (waveRows() > 0) return diffuseStored(bands, m_rule, m_errors);
    reduceRow(bands.front());
    std::rotate(m_lines.begin(), m_lines.begin() + 1, m_lines.end());
    std::ranges::fill(m_lines.back(), 0);
}

void StoredDiffusion::reduceRow(WaveBand& band) {
    for (int x = 0; x < band.width(); ++x) {
        const std::int32_t stored = m_lines[0][static_cast<std::size_t>(x)];
        const int v = clampByte(plainGrey(band.pixel(0, x)) + div(stored * 10, m_rule.weight));
        const bool isWhite = v >= m_rule.threshold;
        band.set(0, x, isWhite ? 1 : 0);
        spread(v - (isWhite ? 255 : 0), x, band);
    }
}

void StoredDiffusion::spread(int error, int x, const WaveBand& band) {
    const Shares& shares = *(m_shares.data() + error + 255);
    const int width = band.width();
    if (x < width - 2) add(0, x + 1, shares[0]);
    if (x < width - 3) add(0, x + 2, shares[1]);
    if (band.firstRow() < band.height() - 2) spreadBelow(1, x, &shares[2], width);
    if (band.firstRow() < band.height() - 3) spreadBelow(2, x, &shares[7], width);
}

/// Five shares about column x, from the left.
void StoredDiffusion::spreadBelow(int line, int x, const std::int32_t* shares, int width) {
    if (x > 1) add(line, x - 2, shares[0]);
    if (x > 0) add(line, x - 1, shares[1]);
    add(line, x, shares[2]);
    if (x < width - 2) add(line, x + 1, shares[3]);
    if (x < width - 3) add(line, x + 2, shares[4]);
}

}  // namespace mobrel
