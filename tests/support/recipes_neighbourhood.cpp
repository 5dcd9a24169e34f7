// SPDX-License-Identifier: MIT
// Filters that look at the pixels around: all read the copy S and write D.
#include <cmath>
#include <cstddef>

#include "support/FilterRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kBlue;
using test::kChannels;
using test::kGreen;
using test::kRed;
using test::Pixel;

int eightNeighbours(const Picture& S, int x, int y, std::size_t c) {
    return S.sample(x - 1, y - 1, c) + S.sample(x, y - 1, c) + S.sample(x + 1, y - 1, c) +
           S.sample(x - 1, y, c) + S.sample(x + 1, y, c) + S.sample(x - 1, y + 1, c) + S.sample(x, y + 1, c) +
           S.sample(x + 1, y + 1, c);
}

int fourNeighbours(const Picture& S, int x, int y, std::size_t c) {
    return S.sample(x, y - 1, c) + S.sample(x, y + 1, c) + S.sample(x + 1, y, c) + S.sample(x - 1, y, c);
}

int largestOfNine(const Picture& S, int x, int y, std::size_t c) {
    int m = 0;
    for (int yy = y - 1; yy <= y + 1; ++yy) {
        for (int xx = x - 1; xx <= x + 1; ++xx) {
            if (S.sample(xx, yy, c) > m) m = S.sample(xx, yy, c);
        }
    }
    return m;
}

/// The grey of the relief filters; its sum goes from green over red to blue.
void greyByRelief(Pixel& p) {
    const std::uint8_t v = byteOf(rounded(p[kGreen] * 0.707 + p[kRed] * 0.222 + p[kBlue] * 0.071));
    for (const std::size_t c : kChannels) p[c] = v;
}

/// Both relief filters: they differ in the difference of a sample and the one to the left and above.
template <typename Difference>
void relief(Picture& D, std::int32_t Level, bool ConnectMargins, EventLog& log, Difference difference) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const float f = static_cast<float>(Level / 100.0);
    const int xMax = ConnectMargins ? D.width - 1 : D.width - 2;
    const int yMax = ConnectMargins ? D.height - 1 : D.height - 2;
    PassProgress progress(0.5F);

    for (int y = 0; y <= yMax; ++y) {
        const int yy = y == yMax ? 0 : y + 1;
        for (int x = 0; x <= xMax; ++x) {
            const int xx = x == 0 ? 0 : x - 1;
            for (const std::size_t c : kChannels) {
                const int d = difference(S.sample(x, y, c), S.sample(xx, yy, c));
                D.at(x, y)[c] = clamped(rounded(std::abs(double{f} * d + 128)));
            }
        }
        progress.rowDone(log);
    }
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) greyByRelief(D.at(x, y));
        progress.rowDone(log);
    }
    log.progressEnd();
}

}  // namespace

void blur(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const std::int32_t w = wrap(std::int64_t{101} - Level);
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const std::int32_t sum =
                    wrap(std::int64_t{w} * S.sample(x, y, c) + eightNeighbours(S, x, y, c));
                D.at(x, y)[c] = byteOf(quotient(sum, wrap(std::int64_t{w} + 8)));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void soften(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const std::int32_t w = wrap(std::int64_t{101} - Level);
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const std::int32_t sum =
                    wrap(fourNeighbours(S, x, y, c) + std::int64_t{w} * S.sample(x, y, c));
                D.at(x, y)[c] = byteOf(quotient(sum, wrap(std::int64_t{w} + 4)));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void sharpen(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const std::int32_t w = wrap(std::int64_t{109} - Level);
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const std::int32_t difference =
                    wrap(std::int64_t{w} * S.sample(x, y, c) - eightNeighbours(S, x, y, c));
                D.at(x, y)[c] = clamped(quotient(difference, wrap(std::int64_t{w} - 8)));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void contour(Picture& D, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const int m = largestOfNine(S, x, y, c);
                D.at(x, y)[c] = byteOf(255 - (m - S.sample(x, y, c)));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void relieve(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const float k = static_cast<float>(wrap(std::int64_t{101} - Level) / 10.0);
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const float center = static_cast<float>(S.sample(x, y, c));
                const std::int32_t t = rounded(double{center} * k);
                const int e = S.sample(x + 1, y - 1, c) + S.sample(x + 1, y, c) + S.sample(x, y - 1, c) -
                              S.sample(x - 1, y + 1, c) - S.sample(x, y + 1, c) - S.sample(x - 1, y, c);
                if (k == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
                D.at(x, y)[c] = clamped(rounded(wrap(std::int64_t{t} + e) / double{k}));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void outline(Picture& D, std::int32_t Level, std::int32_t Shift, EventLog& log) {
    if (D.isEmpty()) return;
    const Picture S = D;
    const float k = static_cast<float>(wrap(-std::int64_t{Level}) / 50.0);
    PassProgress progress(0.5F);

    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                D.at(x, y)[c] = byteOf(quotient(fourNeighbours(S, x, y, c) + D.sample(x, y, c), 5));
            }
        }
        progress.rowDone(log);
    }
    for (int y = 1; y <= D.height - 2; ++y) {
        for (int x = 1; x <= D.width - 2; ++x) {
            for (const std::size_t c : kChannels) {
                const int m = largestOfNine(S, x, y, c);
                const int center = S.sample(x, y, c);
                D.at(x, y)[c] = clamped(rounded(D.sample(x, y, c) - double{k} * (m - center) + Shift));
            }
        }
        progress.rowDone(log);
    }
    log.progressEnd();
}

void emboss(Picture& D, std::int32_t Level, bool ConnectMargins, EventLog& log) {
    relief(D, Level, ConnectMargins, log, [](int sample, int other) { return sample - other; });
}

void engrave(Picture& D, std::int32_t Level, bool ConnectMargins, EventLog& log) {
    relief(D, Level, ConnectMargins, log, [](int sample, int other) { return other - sample; });
}

}  // namespace mobrel::recipes
