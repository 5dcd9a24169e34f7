// SPDX-License-Identifier: MIT
// Colour reduction by error diffusion, the count of colours, and the depth commands.
#include <cstddef>
#include <cstdlib>
#include <set>
#include <utility>

#include "support/DitherRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kBlue;
using test::kChannels;
using test::kGreen;
using test::kRed;
using test::Pixel;

/// A part of an error, in 42nds, and the place that gets it: columns from the pixel's own, lines from its
/// own.
struct Share {
    int columns = 0;
    int lines = 0;
    int weight = 0;
};

constexpr std::array<Share, 12> kShares = {{{1, 0, 8},
                                            {2, 0, 4},
                                            {-2, 1, 2},
                                            {-1, 1, 4},
                                            {0, 1, 8},
                                            {1, 1, 4},
                                            {2, 1, 2},
                                            {-2, 2, 1},
                                            {-1, 2, 2},
                                            {0, 2, 4},
                                            {1, 2, 2},
                                            {2, 2, 1}}};

bool isGiven(const Share& share, int x, int y, int W, int H) {
    // kept: the last columns and lines get less than the kernel could reach.
    if (share.columns == 1 && !(x < W - 2)) return false;
    if (share.columns == 2 && !(x < W - 3)) return false;
    if (share.columns == -1 && !(x > 0)) return false;
    if (share.columns == -2 && !(x > 1)) return false;
    if (share.lines == 1 && !(y < H - 2)) return false;
    if (share.lines == 2 && !(y < H - 3)) return false;
    return true;
}

/// The errors kept for one line, by column.
using LineErrors = std::vector<std::int32_t>;

std::int32_t plainGrey(const Pixel& p) {
    return quotient(p[kRed] + p[kGreen] + p[kBlue], 3);
}

std::uint8_t weightedGrey(const Pixel& p) {
    return byteOf(rounded(0.707 * p[kGreen] + 0.071 * p[kBlue] + 0.222 * p[kRed]));
}

/// Error of the blue, the green and the red channel.
using ChannelErrors = std::array<int, 3>;

void spread(Picture& D, int x, int y, const ChannelErrors& errors) {
    const int W = D.width;
    const int H = D.height;
    if (std::abs(errors[kBlue]) + std::abs(errors[kGreen]) + std::abs(errors[kRed]) <= 3) return;
    const auto give = [&](int toX, int toY, int sixteenths) {
        for (const std::size_t c : kChannels) {
            D.at(toX, toY)[c] = clamped(D.sample(toX, toY, c) + quotient(errors[c] * sixteenths, 16));
        }
    };
    if (x < W - 1) give(x + 1, y, 7);
    if (y < H - 1) give(x, y + 1, 5);
    if (y < H - 1 && x < W - 1) give(x + 1, y + 1, 1);
    if (y < H - 1 && x > 0) give(x - 1, y + 1, 3);
}

ChannelErrors difference(const Pixel& wanted, const Pixel& given) {
    return {wanted[kBlue] - given[kBlue], wanted[kGreen] - given[kGreen], wanted[kRed] - given[kRed]};
}

/// 0 when no depth has so many entries.
int depthOf(const Palette& palette) {
    switch (palette.entries.size()) {
        case 256:
            return 8;
        case 16:
            return 4;
        case 2:
            return 1;
        default:
            return 0;
    }
}

int levelOf(int value) {
    return byteOf(rounded(value / 17.0));
}

std::size_t cubePlace(int blueLevel, int greenLevel, int redLevel) {
    const int place = (blueLevel * 16 + greenLevel) * 16 + redLevel;
    return static_cast<std::size_t>(place);
}

std::vector<std::uint8_t> colorCube(const Palette& Pal) {
    std::vector<std::uint8_t> cube(4096);
    for (int bl = 0; bl <= 15; ++bl) {
        for (int gl = 0; gl <= 15; ++gl) {
            for (int rl = 0; rl <= 15; ++rl) {
                cube[cubePlace(bl, gl, rl)] = closestColor(Pal, rl * 17, gl * 17, bl * 17);
            }
        }
    }
    return cube;
}

Palette optimalOfSample(const Picture& D, std::int32_t PalSize, float RWeight, float GWeight, float BWeight) {
    const test::PictureSize size = paletteSampleSize(D.width, D.height);
    return createOptimal(stretched(D, size.width, size.height), PalSize, 8, RWeight, GWeight, BWeight);
}

}  // namespace

IndexMap::IndexMap(int newWidth, int newHeight, int newBitsPixel)
    : width(newWidth), height(newHeight), bitsPixel(newBitsPixel) {
    if (bitsPixel == 0) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    const int count = stride() * height;
    bytes.resize(static_cast<std::size_t>(count));
}

int IndexMap::stride() const {
    return quotient(bitsPixel * width + 31, 32) * 4;
}

void IndexMap::set(int x, int row, int index) {
    const int place = row * stride() + quotient(x * bitsPixel, 8);
    std::uint8_t& byte = bytes.at(static_cast<std::size_t>(place));
    if (bitsPixel == 8) {
        byte = byteOf(index);
    } else if (bitsPixel == 4 && x % 2 == 0) {
        byte = byteOf(byte % 16 + index * 16);
    } else if (bitsPixel == 4) {
        byte = byteOf(quotient(byte, 16) * 16 + index);
    } else {
        const int weight = 1 << (7 - x % 8);
        const bool isSet = quotient(byte, weight) % 2 == 1;
        if (index == 0 && isSet) byte = byteOf(byte - weight);
        if (index != 0 && !isSet) byte = byteOf(byte + weight);
    }
}

void ditherToBlackAndWhite(Picture& D, IndexMap& map, std::int32_t PalWeight, EventLog& log) {
    if (D.isEmpty()) return;
    const int W = D.width;
    const int H = D.height;
    map = IndexMap(W, H, 1);
    std::array<LineErrors, 3> store;
    store.fill(LineErrors(static_cast<std::size_t>(W), 0));
    PassProgress progress(0.5F);

    std::int64_t sum = 0;
    std::int64_t count = 0;
    for (int y = 0; y <= H - 1; ++y) {
        for (int x = 0; x <= W - 1; ++x) {
            sum += plainGrey(D.at(x, y));
            ++count;
        }
        progress.rowDone(log);
    }
    const auto threshold = static_cast<std::int32_t>(sum / count);

    for (int y = 0; y <= H - 1; ++y) {
        for (int x = 0; x <= W - 1; ++x) {
            const std::int32_t taken = store[0][static_cast<std::size_t>(x)];
            const std::int32_t v = clamped(plainGrey(D.at(x, y)) + quotient(taken * 10, PalWeight));
            const std::uint8_t out = v < threshold ? 0 : 255;
            map.set(x, y, v < threshold ? 0 : 1);
            const std::int32_t e = v - out;
            for (const std::size_t c : kChannels) D.at(x, y)[c] = out;
            for (const Share& share : kShares) {
                if (!isGiven(share, x, y, W, H)) continue;
                const int column = x + share.columns;
                store[static_cast<std::size_t>(share.lines)].at(static_cast<std::size_t>(column)) +=
                    quotient(share.weight * e, 42);
            }
        }
        store[0] = store[1];
        store[1] = store[2];
        store[2].assign(static_cast<std::size_t>(W), 0);
        progress.rowDone(log);
    }
    log.progressEnd();
}

void ditherToGreyPalette(Picture& D, IndexMap& map, const Palette& Pal, bool Diffuse, EventLog& log) {
    if (D.isEmpty()) return;
    map = IndexMap(D.width, D.height, depthOf(Pal));
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            const std::uint8_t g = weightedGrey(p);
            for (const std::size_t c : kChannels) p[c] = g;

            int index = g;
            int out = g;
            if (map.bitsPixel == 4) {
                index = levelOf(g);
                out = index * 17;
            } else if (map.bitsPixel == 1) {
                index = g < 128 ? 0 : 1;
                out = g < 128 ? 0 : 255;
            }
            map.set(x, y, index);

            if (Diffuse) {
                const int e = g - out;
                for (const std::size_t c : kChannels) p[c] = byteOf(out);
                spread(D, x, y, {e, e, e});
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void ditherToColorPalette(Picture& D, IndexMap& map, const Palette& Pal, bool Diffuse, EventLog& log) {
    if (D.isEmpty()) return;
    map = IndexMap(D.width, D.height, depthOf(Pal));
    const std::vector<std::uint8_t> cube = colorCube(Pal);
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            const Pixel wanted = D.at(x, y);
            const std::uint8_t index =
                cube[cubePlace(levelOf(wanted[kBlue]), levelOf(wanted[kGreen]), levelOf(wanted[kRed]))];
            map.set(x, y, index);
            const Entry& entry = Pal.entries.at(index);
            D.at(x, y) = entry;
            if (Diffuse) spread(D, x, y, difference(wanted, entry));
        }
        log.progress(y);
    }
    log.progressEnd();
}

void ditherToTrueColor(const Picture& D, EventLog& log) {
    if (D.isEmpty()) return;
    for (int value = 0; value <= D.height; ++value) log.progress(value);
    log.progressEnd();
}

std::int32_t countColors(const Picture& D) {
    std::set<std::pair<int, int>> pairs;  // red and blue
    std::set<std::array<int, 3>> colors;
    for (const Pixel& p : D.pixels) {
        const std::pair<int, int> pair = {p[kRed], p[kBlue]};
        if (pairs.count(pair) == 0) {
            if (pairs.size() == 32767) break;
            pairs.insert(pair);
        }
        colors.insert({p[kRed], p[kGreen], p[kBlue]});
    }
    return static_cast<std::int32_t>(colors.size());
}

test::PictureSize paletteSampleSize(int width, int height) {
    if (width <= 150 && height <= 150) return {width, height};
    const float sx = static_cast<float>(150.0 / width);
    const float sy = static_cast<float>(150.0 / height);
    if (sx < sy) return {150, rounded(double{sx} * height)};
    return {rounded(double{sy} * width), 150};
}

void depthCommand(Document& document, std::int32_t Index, EventLog& log) {
    Picture& D = document.picture;
    switch (Index) {
        case 0:
        case 4:
            document.BPP = 1;
            document.palette = createBlackAndWhite();
            ditherToBlackAndWhite(D, document.map, 15, log);
            break;
        case 1:
            document.BPP = 4;
            document.palette = createGreys016();
            ditherToGreyPalette(D, document.map, document.palette, true, log);
            break;
        case 2:
            document.BPP = 8;
            document.palette = createGreys256();
            ditherToGreyPalette(D, document.map, document.palette, false, log);
            break;
        case 5:
            document.BPP = 4;
            document.palette = isGreyScale(document.palette) ? createGreys016()
                                                             : optimalOfSample(D, 16, 0.36F, 0.436F, 0.341F);
            ditherToColorPalette(D, document.map, document.palette, true, log);
            break;
        case 6:
            document.BPP = 8;
            document.palette =
                isGreyScale(document.palette) ? createGreys256() : optimalOfSample(D, 256, 1.0F, 1.0F, 1.0F);
            ditherToColorPalette(D, document.map, document.palette, true, log);
            break;
        case 8:
            document.BPP = 24;
            document.palette = {};
            ditherToTrueColor(D, log);
            break;
        default:
            break;
    }
}

}  // namespace mobrel::recipes
