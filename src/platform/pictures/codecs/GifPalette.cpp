// SPDX-License-Identifier: MIT
#include "platform/pictures/codecs/GifPalette.hpp"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace mobrel {

namespace {

constexpr std::size_t kMostEntries = 256;

// The least depth whose table has room for so many entries.
int leastDepth(std::size_t entries) {
    if (entries <= 2) return 1;
    return entries <= 16 ? 4 : 8;
}

int distance(RgbQuad a, RgbQuad b) {
    const int blue = a.blue - b.blue;
    const int green = a.green - b.green;
    const int red = a.red - b.red;
    return blue * blue + green * green + red * red;
}

// An entry that no pixel needs; one behind the table, if need be of a larger depth, where the table has none.
std::size_t freeEntry(const std::vector<RgbQuad>& table, const std::array<bool, 256>& isUsed) {
    if (table.size() < std::size_t{1} << leastDepth(table.size())) return table.size();
    for (std::size_t entry = table.size(); entry-- > 0;) {
        if (!isUsed[entry]) return entry;
    }
    return table.size();
}

void putEntry(std::vector<RgbQuad>& table, std::size_t entry, RgbQuad color) {
    table.resize(std::max(table.size(), entry + 1));
    table[entry] = color;
}

// The entry of what the frame leaves; made where there is none.
std::size_t backgroundEntry(std::vector<RgbQuad>& table, const std::array<bool, 256>& isUsed,
                            RgbQuad background) {
    const auto byDistance = [&](RgbQuad color) { return distance(color, background); };
    const auto nearest = std::ranges::min_element(table, {}, byDistance);
    const auto nearestEntry = static_cast<std::size_t>(nearest - table.begin());
    if (*nearest == background) return nearestEntry;
    const std::size_t entry = freeEntry(table, isUsed);
    if (entry == kMostEntries) return nearestEntry;
    putEntry(table, entry, background);
    return entry;
}

void fillIndices(std::uint8_t* pixel, int count, std::size_t entry) {
    const auto index = static_cast<std::uint8_t>(entry);
    for (std::uint8_t* const end = pixel + static_cast<std::ptrdiff_t>(count) * 4; pixel < end; pixel += 4) {
        pixel[3] = index;
    }
}

void fillUncovered(PixelBuffer& pixels, const GifFrame& frame, std::size_t entry) {
    const int right = frame.left + frame.width;
    const int bottom = frame.top + frame.height;
    for (int line = 0; line < pixels.height(); ++line) {
        std::uint8_t* const row = pixels.row(pixels.height() - 1 - line);
        if (line < frame.top || line >= bottom) {
            fillIndices(row, pixels.width(), entry);
        } else {
            fillIndices(row, frame.left, entry);
            fillIndices(row + static_cast<std::ptrdiff_t>(right) * 4, pixels.width() - right, entry);
        }
    }
}

// Turns each pixel's index into its colour and packs it. `packed` is zero.
template <int Bits>
void finishRow(std::uint8_t* pixel, int width, const std::array<std::uint32_t, 256>& colors,
               std::uint8_t* packed) {
    for (int x = 0; x < width; ++x, pixel += 4) {
        const unsigned index = pixel[3];
        const int bit = x % (8 / Bits) * Bits;
        packed[x / (8 / Bits)] |= static_cast<std::uint8_t>(index << (8 - Bits - bit));
        std::memcpy(pixel, &colors[index], 4);
    }
}

void finishRows(StdPicture& picture) {
    std::array<std::uint32_t, 256> colors{};
    std::memcpy(colors.data(), picture.colorTable.data(), picture.colorTable.size() * sizeof(RgbQuad));
    const int width = picture.pixels.width();
    const int height = picture.pixels.height();
    const auto stride = static_cast<std::size_t>(packedStride(width, picture.bitsPixel));
    picture.indices.resize(stride * static_cast<std::size_t>(height));
    const auto finish = picture.bitsPixel == 1   ? finishRow<1>
                        : picture.bitsPixel == 4 ? finishRow<4>
                                                 : finishRow<8>;
    for (int row = 0; row < height; ++row) {
        std::uint8_t* const packed = picture.indices.data() + stride * static_cast<std::size_t>(row);
        finish(picture.pixels.row(row), width, colors, packed);
    }
}

}  // namespace

void applyGifPalette(StdPicture& picture, const GifFrame& frame, const std::array<bool, 256>& isUsed,
                     std::uint32_t background) {
    const RgbQuad backgroundColor{static_cast<std::uint8_t>(background >> 16),
                                  static_cast<std::uint8_t>(background >> 8),
                                  static_cast<std::uint8_t>(background), 0};
    std::vector<RgbQuad> table = frame.colorTable;
    // Indices may go beyond the table; what is missing there is black.
    const auto lastUsed = std::ranges::find(isUsed.rbegin(), isUsed.rend(), true);
    table.resize(std::max(table.size(), static_cast<std::size_t>(isUsed.rend() - lastUsed)));

    const bool isCovered = frame.coversScreen();
    const bool isTransparent = frame.transparent && isUsed[*frame.transparent];
    picture.hadTransparency = isTransparent || !isCovered;
    if (frame.transparent && picture.hadTransparency) putEntry(table, *frame.transparent, backgroundColor);
    if (!isCovered) {
        const std::size_t entry =
            frame.transparent ? *frame.transparent : backgroundEntry(table, isUsed, backgroundColor);
        fillUncovered(picture.pixels, frame, entry);
    }

    picture.bitsPixel = leastDepth(table.size());
    table.resize(std::size_t{1} << picture.bitsPixel);
    picture.colorTable = std::move(table);
    finishRows(picture);
}

}  // namespace mobrel
