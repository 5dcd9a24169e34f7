// SPDX-License-Identifier: MIT
// Filters that look at one pixel at a time.
#include <array>
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

std::array<std::int32_t, 766> tableOfThirds() {
    std::array<std::int32_t, 766> T{};
    for (int i = 0; i <= 765; ++i) T[static_cast<std::size_t>(i)] = quotient(i, 3);
    return T;
}

std::size_t sumOf(const Pixel& p) {
    return std::size_t{p[kRed]} + p[kGreen] + p[kBlue];
}

std::array<std::uint8_t, 256> shiftTable(std::int32_t Inc) {
    std::array<std::uint8_t, 256> table{};
    for (int i = 0; i <= 255; ++i) table[static_cast<std::size_t>(i)] = clamped(wrap(std::int64_t{i} + Inc));
    return table;
}

/// Moves half of what a channel has too much or too little to each of the other two.
void resolveClipping(std::int32_t& b, std::int32_t& g, std::int32_t& r) {
    const auto isByte = [](std::int32_t value) { return value >= 0 && value <= 255; };
    const auto moveHalf = [](std::int32_t excess, std::int32_t& first, std::int32_t& second) {
        const std::int32_t c = quotient(excess, 2);
        first = wrap(std::int64_t{first} + c);
        second = wrap(std::int64_t{second} + c);
    };
    while (!(isByte(b) && isByte(g) && isByte(r))) {
        if (b <= 0 && g <= 0 && r <= 0) b = g = r = 0;
        if (b >= 255 && g >= 255 && r >= 255) b = g = r = 255;
        if (b < 0) {
            moveHalf(b, g, r);
            b = 0;
        }
        if (b > 255) {
            moveHalf(b - 255, g, r);
            b = 255;
        }
        if (g < 0) {
            moveHalf(g, b, r);
            g = 0;
        }
        if (g > 255) {
            moveHalf(g - 255, b, r);
            g = 255;
        }
        if (r < 0) {
            moveHalf(r, g, b);
            r = 0;
        }
        if (r > 255) {
            moveHalf(r - 255, g, b);
            r = 255;
        }
    }
}

}  // namespace

void greys(Picture& D, EventLog& log) {
    if (D.isEmpty()) return;
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            const std::uint8_t v = byteOf(rounded(p[kGreen] * 0.707 + p[kBlue] * 0.071 + p[kRed] * 0.222));
            for (const std::size_t c : kChannels) p[c] = v;
        }
        log.progress(y);
    }
    log.progressEnd();
}

void negative(Picture& D, EventLog& log) {
    if (D.isEmpty()) return;
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            for (const std::size_t c : kChannels) D.at(x, y)[c] = byteOf(255 - D.sample(x, y, c));
        }
        log.progress(y);
    }
    log.progressEnd();
}

void shiftRGB(Picture& D, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc, EventLog& log) {
    if (D.isEmpty()) return;
    const std::array<std::uint8_t, 256> TB = shiftTable(BInc);
    const std::array<std::uint8_t, 256> TG = shiftTable(GInc);
    const std::array<std::uint8_t, 256> TR = shiftTable(RInc);
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            p[kBlue] = TB[p[kBlue]];
            p[kGreen] = TG[p[kGreen]];
            p[kRed] = TR[p[kRed]];
        }
        log.progress(y);
    }
    log.progressEnd();
}

void saturation(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    const std::array<std::int32_t, 766> T = tableOfThirds();
    const float f = static_cast<float>(Level / 100.0);
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            const std::int32_t g = T[sumOf(D.at(x, y))];
            for (const std::size_t c : kChannels) {
                const int old = D.sample(x, y, c);
                D.at(x, y)[c] = clamped(rounded(double{f} * (old - g) + old));
            }
        }
        log.progress(y);
    }
    log.progressEnd();
}

void contrast(Picture& D, std::int32_t Level, EventLog& log) {
    if (D.isEmpty()) return;
    std::array<std::int32_t, 766> T = tableOfThirds();
    PassProgress progress(0.5F);

    std::int32_t sum = 0;
    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) sum = wrap(std::int64_t{sum} + T[sumOf(D.at(x, y))]);
        progress.rowDone(log);
    }
    const std::int32_t mean = quotient(sum, D.width * D.height);

    const float f = static_cast<float>(wrap(std::int64_t{Level} + 100) / 100.0);
    for (int i = 0; i <= 255; ++i) {
        T[static_cast<std::size_t>(i)] = rounded(double{f} * wrap(std::int64_t{i} - mean) + mean);
    }

    for (int y = 0; y <= D.height - 1; ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            Pixel& p = D.at(x, y);
            std::int32_t b = T[p[kBlue]];
            std::int32_t g = T[p[kGreen]];
            std::int32_t r = T[p[kRed]];
            resolveClipping(b, g, r);
            p[kBlue] = byteOf(b);
            p[kGreen] = byteOf(g);
            p[kRed] = byteOf(r);
        }
        progress.rowDone(log);
    }
    log.progressEnd();
}

}  // namespace mobrel::recipes
