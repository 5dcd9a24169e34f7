// SPDX-License-Identifier: MIT
#include "imaging/diffusion/FloydSteinberg.hpp"

#include <array>
#include <cstdlib>

#include "imaging/NearestByFullSearch.hpp"
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

/// toEntry(pixel) is what a pixel becomes, a colour with its index above it; it may change the pixel to what
/// its errors are counted from.
template <typename ToEntry>
void reducePixels(RowBand& row, ToEntry toEntry) {
    const bool hasAbove = row.firstRow() + 1 < row.height();
    for (int x = 0; x < row.width(); ++x) {
        std::uint8_t* const pixel = row.pixel(0, x);
        const std::uint32_t entry = toEntry(pixel);
        const auto error = [&](int channel) {
            return pixel[channel] - static_cast<int>(entry >> channel * 8 & 0xFF);
        };
        const ChannelErrors errors = {error(0), error(1), error(2)};
        row.set(0, x, static_cast<std::uint8_t>(entry >> 24));
        spread(errors, pixel, hasAbove ? row.pixel(1, x) : nullptr, x > 0, x < row.width() - 1);
    }
}

}  // namespace

void diffuseFloydSteinberg(cDIB& DIB, const Paint& paint, const std::uint32_t* table,
                           const RowDone& rowDone) {
    const auto toEntry = [table](const std::uint8_t* pixel) { return table[cubePlace(pixel)]; };
    CarriedErrors<std::uint32_t> errors(DIB.Width());
    diffuse(
        DIB, paint, [&](RowBand& row) { reducePixels(row, toEntry); },
        [&](std::span<RowBand> bands) { diffuseColours(bands, table, errors); }, rowDone);
}

void diffuseFloydSteinberg(cDIB& DIB, const Paint& paint, const GreyLevels& levels, const RowDone& rowDone) {
    const auto toEntry = [&levels](std::uint8_t* pixel) {
        const std::uint8_t grey = weightedGrey(pixel);
        pixel[0] = pixel[1] = pixel[2] = grey;
        return levels.index(grey) * levels.entry;
    };
    CarriedErrors<std::uint32_t> errors(DIB.Width());
    diffuse(
        DIB, paint, [&](RowBand& row) { reducePixels(row, toEntry); },
        [&](std::span<RowBand> bands) { diffuseGreys(bands, levels, errors); }, rowDone);
}

}  // namespace mobrel
