// SPDX-License-Identifier: MIT
#include "imaging/cDIBDither.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "imaging/IndexRow.hpp"
#include "imaging/WeightedGrey.hpp"
#include "imaging/diffusion/FloydSteinberg.hpp"
#include "imaging/diffusion/Stucki.hpp"
#include "imaging/grey_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

/// A colour with its index above it.
constexpr std::uint32_t withIndex(std::uint32_t colour, int index) {
    return colour | static_cast<std::uint32_t>(index) << 24;
}

/// The levels of a depth; byte 3 of a pixel stays.
Paint greyPaint(int bits) {
    const GreyLevels levels(bits);
    Paint paint;
    for (std::uint32_t i = 0; i < 1U << bits; ++i) paint.colours[i] = levels.step * i * 0x010101;
    paint.kept = 0xFF000000;
    return paint;
}

Paint colourPaint(const cDIBPal& Pal) {
    Paint paint;
    std::memcpy(paint.colours.data(), Pal.PalettePtr(), static_cast<std::size_t>(Pal.Count()) * 4);
    return paint;
}

/// What each colour of the cube becomes. Error 91 for a palette that no builder has made.
std::vector<std::uint32_t> colourTable(const cDIBPal& Pal, const Paint& paint) {
    if (Pal.hPal() == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const ColourCube cube = Pal.hPal()->cube();
    // A table that was made anew may be shorter than what is searched.
    if (*std::ranges::max_element(cube) >= Pal.Count()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    std::vector<std::uint32_t> table;
    for (const std::uint8_t index : cube) {
        table.push_back(withIndex(paint.colours[index] & 0x00FFFFFF, index));
    }
    return table;
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

/// Sets a row to its weighted greys.
void setGreys(std::uint8_t* row, int width) {
    constexpr std::size_t kMostLanes = 16;
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = 0; x < count;) {
        x += greyUntilTie(row + x * 4, count - x);
        for (const std::size_t end = std::min(count, x + kMostLanes); x < end; ++x) {
            std::uint8_t* const pixel = row + x * 4;
            pixel[0] = pixel[1] = pixel[2] = weightedGrey(pixel);
        }
    }
}

/// The pixels become full greys; only their indices are reduced.
void toGreys(RowBand& row, const GreyLevels& levels) {
    const auto count = static_cast<std::size_t>(row.width());
    std::uint8_t* const pixels = row.pixel(0, 0);
    std::uint8_t* const indices = row.indices(0);
    setGreys(pixels, row.width());
    for (std::size_t x = takeFirstBytes(pixels, count, indices); x < count; ++x) indices[x] = pixels[x * 4];
    if (levels.step == 1) return;
    for (std::size_t x = 0; x < count; ++x) indices[x] = static_cast<std::uint8_t>(levels.index(indices[x]));
}

void toColours(RowBand& row, const std::vector<std::uint32_t>& table) {
    for (int x = 0; x < row.width(); ++x) {
        const auto place = static_cast<std::size_t>(cubePlace(row.pixel(0, x)));
        row.set(0, x, static_cast<std::uint8_t>(table[place] >> 24));
    }
}

/// The sum of all plain greys, which takes 64 bits in a large picture; summed(y) is called after each row.
template <typename Summed>
std::int64_t sumOfGreys(const cDIB& DIB, Summed summed) {
    std::int64_t sum = 0;
    for (int y = 0; y < DIB.Height(); ++y) {
        sum += sumOfPlainGreys(DIB.hDIB()->row(y), static_cast<std::size_t>(DIB.Width()));
        summed(y);
    }
    return sum;
}

/// Packs the indices of each row into the map, of which packed(y) then tells.
template <typename Packed>
RowDone packInto(std::uint8_t* map, int width, int bits, Packed packed) {
    return [=](int y, const std::uint8_t* indices) {
        packIndices(indices, width, bits, map + packedStride(width, bits) * y);
        packed(y);
    };
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
    float done = 0;
    const auto raiseHalf = [&](int) {
        done += 0.5F;
        Progress.raise(roundInt(done));
    };
    std::uint8_t* const map = InitializePalID(width, height, 1);
    const auto threshold = static_cast<int>(sumOfGreys(DIB, raiseHalf) / (std::int64_t{width} * height));

    if (PalWeight == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    diffuseStucki(DIB, greyPaint(1), threshold, PalWeight, packInto(map, width, 1, raiseHalf));
    ProgressEnd.raise();
}

void cDIBDither::DitherToGreyPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int bits = depthOf(Pal.Count());
    const GreyLevels levels(bits);
    const Paint paint = greyPaint(bits);
    const RowDone rowDone = packInto(InitializePalID(width, DIB.Height(), bits), width, bits,
                                     [this](int y) { Progress.raise(y); });
    if (Diffuse) {
        diffuseFloydSteinberg(DIB, paint, levels, rowDone);
    } else {
        reduceRows(
            DIB, paint, [&](RowBand& row) { toGreys(row, levels); }, rowDone);
    }
    ProgressEnd.raise();
}

void cDIBDither::DitherToColorPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int bits = depthOf(Pal.Count());
    const Paint paint = colourPaint(Pal);
    const auto table = colourTable(Pal, paint);
    const RowDone rowDone = packInto(InitializePalID(width, DIB.Height(), bits), width, bits,
                                     [this](int y) { Progress.raise(y); });
    if (Diffuse) {
        diffuseFloydSteinberg(DIB, paint, table.data(), rowDone);
    } else {
        reduceRows(
            DIB, paint, [&](RowBand& row) { toColours(row, table); }, rowDone);
    }
    ProgressEnd.raise();
}

/// kept: one event more than the rows, by which the bar moves at a change of depth.
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
