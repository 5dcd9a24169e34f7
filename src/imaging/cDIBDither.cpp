// SPDX-License-Identifier: MIT
#include "imaging/cDIBDither.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "imaging/ErrorDiffusion.hpp"
#include "imaging/IndexRow.hpp"
#include "imaging/WeightedGrey.hpp"
#include "platform/Numbers.hpp"

namespace mobrel {

namespace {

using ByteTable = std::array<std::uint8_t, 256>;

/// Round(v / 17): the nearest of 16 even levels.
ByteTable levelTable() {
    ByteTable table{};
    for (int v = 0; v < 256; ++v) table[static_cast<std::size_t>(v)] = toByte(roundInt(v / 17.0));
    return table;
}

/// A grey as it is reduced: its index, and the grey that the index stands for.
struct ReducedGrey {
    int index;
    int grey;
};

/// What each grey becomes at a depth of 8, 4 or 1 bits.
std::array<ReducedGrey, 256> greyReduction(int bits) {
    const ByteTable levels = levelTable();
    std::array<ReducedGrey, 256> reduction{};
    for (int g = 0; g < 256; ++g) {
        const int level = levels[static_cast<std::size_t>(g)];
        reduction[static_cast<std::size_t>(g)] = bits == 8 ? ReducedGrey{g, g}
                                                 : bits == 4
                                                     ? ReducedGrey{level, level * 17}
                                                     : ReducedGrey{g < 128 ? 0 : 1, g < 128 ? 0 : 255};
    }
    return reduction;
}

/// The depth of an index into so many entries. Error 5 for a number that is no depth's.
int depthOf(int entries) {
    switch (entries) {
        case 256:
            return 8;
        case 16:
            return 4;
        case 2:
            return 1;
        default:
            throw RuntimeError(ErrorNumber::InvalidCall);
    }
}

std::uint8_t* rowOf(cDIB& DIB, int y) {
    return y < DIB.Height() ? DIB.DIBitsPtr() + std::ptrdiff_t{y} * DIB.BytesPerScanLine() : nullptr;
}

void setGrey(std::uint8_t* pixel, int grey) {
    pixel[0] = pixel[1] = pixel[2] = static_cast<std::uint8_t>(grey);
}

/// The sum of all plain greys, after each row of which `rowDone` is called.
template <typename RowDone>
std::int64_t sumOfGreys(const cDIB& DIB, RowDone rowDone) {
    std::int64_t sum = 0;
    for (int y = 0; y < DIB.Height(); ++y) {
        const std::uint8_t* pixel = DIB.hDIB()->row(y);
        for (int x = 0; x < DIB.Width(); ++x, pixel += 4) sum += plainGrey(pixel);
        rowDone();
    }
    return sum;
}

}  // namespace

std::uint8_t* cDIBDither::InitializePalID(int nWidth, int nHeight, int nbpp) {
    m_map.assign(static_cast<std::size_t>(packedStride(nWidth, nbpp) * nHeight), 0);
    return m_map.data();
}

void cDIBDither::DitherToBlackAndWhite(cDIB& DIB, std::int32_t PalWeight) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int height = DIB.Height();
    std::uint8_t* map = InitializePalID(width, height, 1);
    float done = 0;
    const auto rowDone = [&] {
        done += 0.5F;
        Progress.raise(roundInt(done));
    };
    const auto threshold = static_cast<int>(sumOfGreys(DIB, rowDone) / (std::int64_t{width} * height));

    StoredDiffusion store(width, height);
    for (int y = 0; y < height; ++y, map += packedStride(width, 1)) {
        IndexRow indices(map, 1);
        std::uint8_t* pixel = rowOf(DIB, y);
        for (int x = 0; x < width; ++x, pixel += 4) {
            const int v = clampByte(wrapAdd(plainGrey(pixel), div(wrapMul(store.at(x), 10), PalWeight)));
            const int out = v < threshold ? 0 : 255;
            indices.put(x, out);
            setGrey(pixel, out);
            store.spread(v - out, x, y);
        }
        store.nextLine();
        rowDone();
    }
    ProgressEnd.raise();
}

void cDIBDither::DitherToGreyPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int height = DIB.Height();
    const int bits = depthOf(Pal.Count());
    const auto reduction = greyReduction(bits);
    std::uint8_t* map = InitializePalID(width, height, bits);
    for (int y = 0; y < height; ++y, map += packedStride(width, bits)) {
        IndexRow indices(map, bits);
        std::uint8_t* row = rowOf(DIB, y);
        std::uint8_t* above = rowOf(DIB, y + 1);
        for (int x = 0; x < width; ++x) {
            std::uint8_t* pixel = row + std::ptrdiff_t{x} * 4;
            const std::uint8_t grey = weightedGrey(pixel);
            const ReducedGrey reduced = reduction[grey];
            indices.put(x, reduced.index);
            setGrey(pixel, Diffuse ? reduced.grey : grey);
            const int error = grey - reduced.grey;
            if (Diffuse) PixelDiffusion::spread({error, error, error}, x, width, row, above);
        }
        Progress.raise(y);
    }
    ProgressEnd.raise();
}

void cDIBDither::DitherToColorPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int height = DIB.Height();
    const int bits = depthOf(Pal.Count());
    if (Pal.hPal() == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const ColourCube cube = Pal.hPal()->cube();
    // A table that was made anew may be shorter than what is searched.
    if (*std::ranges::max_element(cube) >= Pal.Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    const ByteTable levels = levelTable();
    const RgbQuad* entries = Pal.PalettePtr();
    std::uint8_t* map = InitializePalID(width, height, bits);
    for (int y = 0; y < height; ++y, map += packedStride(width, bits)) {
        IndexRow indices(map, bits);
        std::uint8_t* row = rowOf(DIB, y);
        std::uint8_t* above = rowOf(DIB, y + 1);
        for (int x = 0; x < width; ++x) {
            std::uint8_t* pixel = row + std::ptrdiff_t{x} * 4;
            const int colour =
                (levels[pixel[0]] * kCubeLevels + levels[pixel[1]]) * kCubeLevels + levels[pixel[2]];
            const std::uint8_t index = cube[static_cast<std::size_t>(colour)];
            const RgbQuad& entry = entries[index];
            indices.put(x, index);
            const std::array<int, 3> errors = {pixel[0] - entry.blue, pixel[1] - entry.green,
                                               pixel[2] - entry.red};
            std::memcpy(pixel, &entry, 4);
            if (Diffuse) PixelDiffusion::spread(errors, x, width, row, above);
        }
        Progress.raise(y);
    }
    ProgressEnd.raise();
}

/// kept: one event more than the rows, since the bar's way at a change of depth hangs on it.
void cDIBDither::DitherToTrueColor(const cDIB& DIB) {
    if (DIB.hDIB() == nullptr) return;
    for (int y = 0; y <= DIB.Height(); ++y) Progress.raise(y);
    ProgressEnd.raise();
}

std::int32_t cDIBDither::CountColors(const cDIB& DIB) const {
    if (DIB.hDIB() == nullptr) return 0;
    constexpr int kMostPairs = 32767;
    constexpr std::size_t kGreens = 256;
    // A row of flags for each pair of red and blue, in the order in which the pairs are met.
    std::vector<std::int16_t> rowOfPair(std::size_t{1} << 16, 0);
    const std::unique_ptr<std::uint8_t[], decltype(&std::free)> flags(
        static_cast<std::uint8_t*>(std::calloc(kMostPairs + 1, kGreens)), &std::free);
    if (flags == nullptr) throw RuntimeError(ErrorNumber::OutOfMemory);

    std::int32_t count = 0;
    int pairs = 0;
    for (int y = 0; y < DIB.Height(); ++y) {
        const std::uint8_t* pixel = DIB.hDIB()->row(y);
        for (int x = 0; x < DIB.Width(); ++x, pixel += 4) {
            std::int16_t& row = rowOfPair[static_cast<std::size_t>(pixel[2]) * 256 + pixel[0]];
            if (row == 0) {
                if (++pairs > kMostPairs) return count;
                row = static_cast<std::int16_t>(pairs);
            }
            std::uint8_t& flag = flags[static_cast<std::size_t>(row) * kGreens + pixel[1]];
            count += flag == 0;
            flag = 1;
        }
    }
    return count;
}

}  // namespace mobrel
