// SPDX-License-Identifier: MIT
// Filters that move pixels, add chance or lay a pattern over the picture.
#include <array>
#include <cstddef>

#include "support/FilterRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kChannels;

/// A random place within the range around `at`, not beyond the edges 0 and `last`.
int displaced(float random, std::int32_t twiceRange, int at, std::int32_t range, int last) {
    const std::int32_t place = rounded(double{random} * twiceRange + at - range);
    if (place < 1) return 0;
    if (place > last) return last;
    return place;
}

struct BlockMean {
    std::array<std::int32_t, 3> means{};

    /// Takes the mean over the pixels of the block that the picture has; stays as it is when it has none.
    void measure(const Picture& S, int bx, int by, std::int32_t n) {
        const std::int32_t xLast = wrap(std::int64_t{bx} + n - 1);
        const std::int32_t yLast = wrap(std::int64_t{by} + n - 1);
        std::array<std::int32_t, 3> sums{};
        std::int32_t count = 0;
        for (int j = by; j <= yLast && j <= S.height - 1; ++j) {
            for (int i = bx; i <= xLast && i <= S.width - 1; ++i) {
                for (const std::size_t c : kChannels)
                    sums[c] = wrap(std::int64_t{sums[c]} + S.sample(i, j, c));
                count += 1;
            }
        }
        if (count == 0) return;
        for (const std::size_t c : kChannels) means[c] = quotient(sums[c], count);
    }
};

}  // namespace

void diffuse(Picture& D, std::int32_t xRange, std::int32_t yRange, std::int32_t DiffuseStep,
             const NextRandom& nextRandom, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const std::int32_t rx2 = wrap(std::int64_t{xRange} * 2);
    const std::int32_t ry2 = wrap(std::int64_t{yRange} * 2);
    const std::int64_t step = DiffuseStep < 1 ? 1 : DiffuseStep;
    for (std::int64_t row = 0; row <= D.height - 1; row += step) {
        const int y = static_cast<int>(row);
        for (std::int64_t column = 0; column <= D.width - 1; column += step) {
            const int x = static_cast<int>(column);
            const float u = nextRandom();
            const int xx = displaced(u, rx2, x, xRange, D.width - 1);
            const float v = nextRandom();
            const int yy = displaced(v, ry2, y, yRange, D.height - 1);
            for (const std::size_t c : kChannels) D.at(x, y)[c] = S.at(xx, yy)[c];
        }
        log.progress(y);
    }
    log.progressEnd();
}

void noise(Picture& D, std::int32_t Level, std::int32_t xyStep, const NextRandom& nextRandom, EventLog& log) {
    if (D.isEmpty()) return;
    const std::int32_t l2 = wrap(std::int64_t{Level} * 2);
    for (std::int64_t row = 0; row <= D.height - 1; row += xyStep) {
        const int y = static_cast<int>(row);
        for (std::int64_t column = 0; column <= D.width - 1; column += xyStep) {
            const int x = static_cast<int>(column);
            const std::int32_t n = rounded(double{nextRandom()} * l2 - Level);
            for (const std::size_t c : kChannels) {
                D.at(x, y)[c] = clamped(wrap(std::int64_t{n} + D.sample(x, y, c)));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void pixelize(Picture& D, std::int32_t PixelSize, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const std::int32_t n = PixelSize;
    BlockMean block;
    for (int y = 0; y <= D.height - 1; ++y) {
        const int by = quotient(y, n) * n;
        for (int x = 0; x <= D.width - 1; ++x) {
            if (x % n == 0) block.measure(S, x, by, n);
            for (const std::size_t c : kChannels) D.at(x, y)[c] = byteOf(block.means[c]);
        }
        log.progress(y);
    }
    log.progressEnd();
}

void scanLines(Picture& D, std::int32_t BlackLevel, std::int32_t WhiteLevel, EventLog& log) {
    if (D.isEmpty()) return;
    const float wf = static_cast<float>(1 + WhiteLevel / 100.0);
    const float bf = static_cast<float>(1 - BlackLevel / 100.0);
    std::array<std::uint8_t, 256> TW{};
    std::array<std::uint8_t, 256> TB{};
    for (int i = 0; i <= 255; ++i) {
        const std::size_t entry = static_cast<std::size_t>(i);
        TW[entry] = double{wf} * i > 255 ? std::uint8_t{255} : byteOf(rounded(double{wf} * i));
        TB[entry] = double{bf} * i < 0 ? std::uint8_t{0} : byteOf(rounded(double{bf} * i));
    }
    for (int y = 0; y <= D.height - 2; y += 2) {
        for (int x = 0; x <= D.width - 1; ++x) {
            for (const std::size_t c : kChannels) {
                D.at(x, y)[c] = TW[D.at(x, y)[c]];
                D.at(x, y + 1)[c] = TB[D.at(x, y + 1)[c]];
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

}  // namespace mobrel::recipes
