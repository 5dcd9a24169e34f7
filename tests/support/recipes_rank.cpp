// SPDX-License-Identifier: MIT
// Filters that compare a pixel with a few others to remove specks.
#include <array>
#include <cstddef>
#include <cstdlib>

#include "support/FilterRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kBlue;
using test::kChannels;
using test::kGreen;
using test::kRed;

/// The two neighbours of a pass, as steps from the pixel.
struct Direction {
    int ax, ay;
    int bx, by;
};

constexpr Direction kPasses[] = {
    {0, -1, 0, 1},
    {-1, 0, 1, 0},
    {-1, -1, 1, 1},
    {-1, 1, 1, -1},
};

/// Four passes in place: what is stored is seen by the pixels after it.
template <typename Tests>
void movePasses(Picture& D, EventLog& log, Tests tests) {
    if (D.isEmpty()) return;
    PassProgress progress(0.25F);
    for (const Direction& pass : kPasses) {
        for (int y = 1; y <= D.height - 2; ++y) {
            for (int x = 1; x <= D.width - 2; ++x) {
                for (const std::size_t c : kChannels) {
                    const int a = D.sample(x + pass.ax, y + pass.ay, c);
                    const int b = D.sample(x + pass.bx, y + pass.by, c);
                    D.at(x, y)[c] = byteOf(tests(D.sample(x, y, c), a, b));
                }
            }
            progress.rowDone(log);
        }
    }
    log.progressEnd();
}

/// Replaces each inner sample by the one of its plus of five that `isFurther` prefers over all others.
template <typename IsFurther>
void extremeOfPlus(Picture& D, EventLog& log, int start, IsFurther isFurther) {
    if (D.isEmpty()) return;
    const Picture S = D;
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                int extreme = start;
                for (const int sample : {S.sample(x, y - 1, c), S.sample(x - 1, y, c), S.sample(x, y, c),
                                         S.sample(x + 1, y, c), S.sample(x, y + 1, c)}) {
                    if (isFurther(sample, extreme)) extreme = sample;
                }
                D.at(x, y)[c] = byteOf(extreme);
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

using Means = std::array<std::int32_t, 3>;

/// The mean colour of the 12 pixels around the block whose first pixel is (x, y).
Means ringMeans(const Picture& S, int x, int y) {
    Means means{};
    for (const std::size_t c : kChannels) {
        int sum = 0;
        for (int dy = -1; dy <= 2; ++dy) {
            for (int dx = -1; dx <= 2; ++dx) {
                const bool isOnRing = dx == -1 || dx == 2 || dy == -1 || dy == 2;
                if (isOnRing) sum += S.sample(x + dx, y + dy, c);
            }
        }
        means[c] = quotient(sum, 12);
    }
    return means;
}

bool isOff(const Picture& S, int x, int y, const Means& means, std::int32_t Threshold) {
    return std::abs(S.sample(x, y, kBlue) - means[kBlue]) > Threshold ||
           std::abs(S.sample(x, y, kGreen) - means[kGreen]) > Threshold ||
           std::abs(S.sample(x, y, kRed) - means[kRed]) > Threshold;
}

}  // namespace

void despeckle(Picture& D, EventLog& log) {
    movePasses(D, log, [](int p, int a, int b) {
        if (a < p - 1 && p > 0) p = p - 1;
        if (b < p - 1 && p > 0) p = p - 1;
        if (a > p + 1 && p < 255) p = p + 1;
        if (b > p + 1 && p < 255) p = p + 1;
        return p;
    });
}

void despeckleMore(Picture& D, EventLog& log) {
    movePasses(D, log, [](int p, int a, int b) {
        if (a < p - 1 && p > 0) p = p - 1;
        if (a < p && b <= p && p > 0) p = p - 1;
        if (b < p && a <= p && p > 0) p = p - 1;
        if (b < p - 1 && p > 0) p = p - 1;
        if (a > p + 1 && p < 255) p = p + 1;
        if (a > p && b >= p && p < 255) p = p + 1;
        if (b > p && a >= p && p < 255) p = p + 1;
        if (b > p + 1 && p < 255) p = p + 1;
        return p;
    });
}

void rankFilterMaximum(Picture& D, EventLog& log) {
    extremeOfPlus(D, log, 0, [](int sample, int extreme) { return sample > extreme; });
}

void rankFilterMinimum(Picture& D, EventLog& log) {
    extremeOfPlus(D, log, 255, [](int sample, int extreme) { return sample < extreme; });
}

void saltAndPepperRemoval(Picture& D, std::int32_t Threshold, EventLog& log) {
    if (D.isEmpty()) return;
    Picture S = D;
    for (int y = 1; y <= D.height - 3; ++y) {
        for (int x = 1; x <= D.width - 3; ++x) {
            const Means means = ringMeans(S, x, y);
            for (int dy = 0; dy <= 1; ++dy) {
                for (int dx = 0; dx <= 1; ++dx) {
                    if (!isOff(S, x + dx, y + dy, means, Threshold)) continue;
                    for (const std::size_t c : kChannels) {
                        D.at(x + dx, y + dy)[c] = byteOf(means[c]);
                        S.at(x + dx, y + dy)[c] = byteOf(means[c]);
                    }
                }
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

}  // namespace mobrel::recipes
