// SPDX-License-Identifier: MIT
#include "imaging/cDIBDither.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

#include "imaging/ErrorDiffusion.hpp"
#include "imaging/IndexRow.hpp"
#include "imaging/WaveBand.hpp"
#include "imaging/WeightedGrey.hpp"
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
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = 0; x < count;) {
        x += greyUntilTie(row + x * 4, count - x);
        for (const std::size_t end = std::min<std::size_t>(count, x + WaveBand::kMostRows); x < end; ++x) {
            std::uint8_t* const pixel = row + x * 4;
            pixel[0] = pixel[1] = pixel[2] = weightedGrey(pixel);
        }
    }
}

/// The pixels become full greys; only their indices are reduced.
void toGreys(WaveBand& band, const GreyLevels& levels) {
    const auto count = static_cast<std::size_t>(band.width());
    for (int row = 0; row < band.rows(); ++row) {
        std::uint8_t* const pixels = band.pixel(row, 0);
        std::uint8_t* const indices = band.indices(row);
        setGreys(pixels, band.width());
        for (std::size_t x = takeFirstBytes(pixels, count, indices); x < count; ++x)
            indices[x] = pixels[x * 4];
        if (levels.step == 1) continue;
        for (std::size_t x = 0; x < count; ++x) {
            indices[x] = static_cast<std::uint8_t>(levels.index(indices[x]));
        }
    }
}

void toColours(WaveBand& band, const std::vector<std::uint32_t>& table) {
    for (int row = 0; row < band.rows(); ++row) {
        for (int x = 0; x < band.width(); ++x) {
            const auto place = static_cast<std::size_t>(cubePlace(band.pixel(row, x)));
            band.set(row, x, static_cast<std::uint8_t>(table[place] >> 24));
        }
    }
}

/// The sum of all plain greys, after each row of which `rowDone` is called.
template <typename RowDone>
std::int64_t sumOfGreys(const cDIB& DIB, RowDone rowDone) {
    std::int64_t sum = 0;
    for (int y = 0; y < DIB.Height(); ++y) {
        sum += sumOfPlainGreys(DIB.hDIB()->row(y), static_cast<std::size_t>(DIB.Width()));
        rowDone();
    }
    return sum;
}

/// Reduces a picture by one or two bands at a time, which reduce(bands) does, and packs the indices row by
/// row.
template <typename Reduce, typename RowDone>
void reduceBands(cDIB& DIB, const Paint& paint, int bits, std::uint8_t* map, Reduce reduce, RowDone rowDone) {
    const int rows = std::max(waveRows(), 1);
    const int width = DIB.Width();
    std::array<WaveBand, 2> bands = {WaveBand(DIB, paint), WaveBand(DIB, paint)};
    for (int y = 0; y < DIB.Height();) {
        bands[0].select(y, rows);
        bands[1].select(y + bands[0].rows(), waveRows());
        const std::span<WaveBand> used(bands.data(), bands[1].rows() > 0 ? 2 : 1);
        reduce(used);
        for (WaveBand& band : used) {
            for (int row = 0; row < band.rows(); ++row, ++y, map += packedStride(width, bits)) {
                packIndices(band.indices(row), width, bits, map);
                rowDone(y);
            }
        }
    }
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

    if (PalWeight == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    StoredDiffusion diffusion(width, {threshold, PalWeight});
    reduceBands(
        DIB, greyPaint(1), 1, map, [&](std::span<WaveBand> bands) { diffusion.reduce(bands); },
        [&](int) { rowDone(); });
    ProgressEnd.raise();
}

void cDIBDither::DitherToGreyPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int bits = depthOf(Pal.Count());
    const GreyLevels levels(bits);
    std::uint8_t* map = InitializePalID(width, DIB.Height(), bits);
    PixelDiffusion diffusion(width);
    reduceBands(
        DIB, greyPaint(bits), bits, map,
        [&](std::span<WaveBand> bands) {
            if (Diffuse) {
                diffusion.reduceGreys(bands, levels);
            } else {
                for (WaveBand& band : bands) toGreys(band, levels);
            }
        },
        [&](int y) { Progress.raise(y); });
    ProgressEnd.raise();
}

void cDIBDither::DitherToColorPalette(cDIB& DIB, const cDIBPal& Pal, bool Diffuse) {
    if (DIB.hDIB() == nullptr) return;
    const int width = DIB.Width();
    const int bits = depthOf(Pal.Count());
    const Paint paint = colourPaint(Pal);
    const auto table = colourTable(Pal, paint);
    std::uint8_t* map = InitializePalID(width, DIB.Height(), bits);
    PixelDiffusion diffusion(width);
    reduceBands(
        DIB, paint, bits, map,
        [&](std::span<WaveBand> bands) {
            if (Diffuse) {
                diffusion.reduceColours(bands, table.data());
            } else {
                for (WaveBand& band : bands) toColours(band, table);
            }
        },
        [&](int y) { Progress.raise(y); });
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
