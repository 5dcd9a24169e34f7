// SPDX-License-Identifier: MIT
#include "filters/kernels/diffuse_noise.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "filters/kernels/diffuse_noise_vectors.hpp"
#include "filters/kernels/forSteps.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

namespace {

/// A random place about `centre`, held inside 0 to last.
std::int32_t scattered(float random, std::int32_t centre, std::int32_t range, std::int32_t last) {
    const std::int32_t place = roundInt(static_cast<double>(random) * wrapMul(range, 2) + centre - range);
    return place < 1 ? 0 : std::min(place, last);
}

/// Takes the colour of the pixel at a place among others.
void takeColour(const std::uint8_t* pixels, std::int32_t place, std::uint8_t* to) {
    std::uint32_t colour = 0;
    std::uint32_t old = 0;
    std::memcpy(&colour, pixels + std::ptrdiff_t{place} * 4, 4);
    std::memcpy(&old, to, 4);
    old = (colour & 0x00FFFFFF) | (old & 0xFF000000);
    std::memcpy(to, &old, 4);
}

/// Adds a random amount to the channels of a pixel.
void brighten(std::uint8_t* pixel, std::int32_t level, float random) {
    const double range = wrapMul(level, 2);
    const std::int32_t amount = roundInt(random * range - level);
    for (int channel = 0; channel < 3; ++channel) {
        pixel[channel] = clampByte(wrapAdd(pixel[channel], amount));
    }
}

/// How many pixels are drawn at once.
constexpr std::size_t kPartPixels = 512;

/// Calls work(first, count, numbers) for the parts of a row, with kNumbers random numbers a pixel.
template <std::size_t kNumbers, typename Work>
void forParts(int width, RandomSource& random, Work work) {
    std::array<std::uint32_t, kPartPixels * kNumbers> bits;
    const auto end = static_cast<std::size_t>(width);
    for (std::size_t first = 0; first < end; first += kPartPixels) {
        const std::size_t count = std::min(kPartPixels, end - first);
        random.draw(std::span(bits).first(count * kNumbers));
        work(first, count, bits.data());
    }
}

void diffuseWholeRow(const KeptRows& from, int y, std::uint8_t* to, Place range, RandomSource& random) {
    forParts<2>(from.width, random, [&](std::size_t first, std::size_t count, const std::uint32_t* bits) {
        std::array<std::int32_t, kPartPixels> places;
        const auto column = static_cast<std::int32_t>(first);
        std::size_t i = scatterPlaces(from, {column, y}, range, count, bits, places.data());
        for (; i < count; ++i) {
            const auto x = static_cast<std::int32_t>(first + i);
            places[i] =
                from.placeOf(scattered(RandomSource::number(bits[i * 2]), x, range.x, from.width - 1),
                             scattered(RandomSource::number(bits[i * 2 + 1]), y, range.y, from.height - 1));
        }
        for (i = 0; i < count; ++i) takeColour(from.bits, places[i], to + (first + i) * 4);
    });
}

void addNoiseToWholeRow(std::uint8_t* row, int width, std::int32_t level, RandomSource& random) {
    forParts<1>(width, random, [&](std::size_t first, std::size_t count, const std::uint32_t* bits) {
        std::uint8_t* const part = row + first * 4;
        for (std::size_t i = addNoise(part, count, level, bits); i < count; ++i) {
            brighten(part + i * 4, level, RandomSource::number(bits[i]));
        }
    });
}

}  // namespace

void diffuseRow(const KeptRows& from, int y, std::uint8_t* to, Place range, std::int32_t step,
                RandomSource& random) {
    if (step == 1 && isNarrow(range.x) && isNarrow(range.y)) {
        return diffuseWholeRow(from, y, to, range, random);
    }
    forSteps(0, from.width - 1, step, [&](std::int32_t x) {
        const std::int32_t xx = scattered(random.next(), x, range.x, from.width - 1);
        const std::int32_t yy = scattered(random.next(), y, range.y, from.height - 1);
        takeColour(from.bits, from.placeOf(xx, yy), to + std::ptrdiff_t{x} * 4);
    });
}

void noiseRow(std::uint8_t* row, int width, std::int32_t level, std::int32_t step, RandomSource& random) {
    if (step == 1 && isNarrow(level)) return addNoiseToWholeRow(row, width, level, random);
    forSteps(0, width - 1, step,
             [&](std::int32_t x) { brighten(row + std::ptrdiff_t{x} * 4, level, random.next()); });
}

}  // namespace mobrel::kernels
