// SPDX-License-Identifier: MIT
#include "imaging/diffusion/FloydSteinberg.hpp"

#include <array>
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
void spread(const ChannelErrors& errors, std::uint8_t* pixel, std::uint8_t* above, bool hasLeft,
            bool hasRight) {
    if (std::abs(errors[0]) + std::abs(errors[1]) + std::abs(errors[2]) < kLeastSpread) return;
    if (hasRight) addShare(pixel + 4, errors, 7);
    if (above == nullptr) return;
    addShare(above, errors, 5);
    if (hasRight) addShare(above + 4, errors, 1);
    if (hasLeft) addShare(above - 4, errors, 3);
}

/// entryOf(pixel) is what a pixel becomes, a colour with its index above it.
template <typename EntryOf>
void reducePixels(RowBand& band, EntryOf entryOf) {
    const bool hasAbove = band.firstRow() + 1 < band.height();
    for (int x = 0; x < band.width(); ++x) {
        std::uint8_t* const pixel = band.pixel(0, x);
        const std::uint32_t entry = entryOf(pixel);
        const auto error = [&](int channel) {
            return pixel[channel] - static_cast<int>(entry >> channel * 8 & 0xFF);
        };
        const ChannelErrors errors = {error(0), error(1), error(2)};
        band.set(0, x, static_cast<std::uint8_t>(entry >> 24));
        spread(errors, pixel, hasAbove ? band.pixel(1, x) : nullptr, x > 0, x < band.width() - 1);
    }
}

}  // namespace

void FloydSteinbergColours::reduceRow(RowBand& row) {
    reducePixels(row, [this](const std::uint8_t* pixel) { return m_table[cubePlace(pixel)]; });
}

void FloydSteinbergColours::reduceBands(std::span<RowBand> bands) {
    diffuseColours(bands, m_table, m_errors);
}

void FloydSteinbergGreys::reduceRow(RowBand& row) {
    reducePixels(row, [this](std::uint8_t* pixel) {
        const std::uint8_t grey = weightedGrey(pixel);
        pixel[0] = pixel[1] = pixel[2] = grey;
        return m_levels.index(grey) * m_levels.entry;
    });
}

void FloydSteinbergGreys::reduceBands(std::span<RowBand> bands) {
    diffuseGreys(bands, m_levels, m_errors);
}

}  // namespace mobrel
