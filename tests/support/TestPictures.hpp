// SPDX-License-Identifier: MIT
// A plain picture for the filter tests, its ways to a surface and back, and pictures to sweep with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "imaging/cDIB.hpp"

namespace mobrel::test {

/// Blue, green, red, unused.
using Pixel = std::array<std::uint8_t, 4>;

inline constexpr std::array<std::size_t, 3> kChannels = {0, 1, 2};
inline constexpr std::size_t kBlue = 0;
inline constexpr std::size_t kGreen = 1;
inline constexpr std::size_t kRed = 2;

/// What the sweep pictures hold in byte 3, where no filter may write.
inline constexpr std::uint8_t kSentinel = 0xA5;

/// Pixels in memory order: y = 0 is the first memory row of a surface, the bottom line of the picture.
/// A picture without pixels stands for an empty surface.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    Picture() = default;
    Picture(int newWidth, int newHeight, Pixel fill = {})
        : width(newWidth), height(newHeight), pixels(static_cast<std::size_t>(newWidth * newHeight), fill) {}

    bool isEmpty() const { return pixels.empty(); }
    bool operator==(const Picture&) const = default;

    /// std::out_of_range off the picture.
    Pixel& at(int x, int y) { return pixels[index(x, y)]; }
    const Pixel& at(int x, int y) const { return pixels[index(x, y)]; }
    int sample(int x, int y, std::size_t channel) const { return at(x, y)[channel]; }

 private:
    std::size_t index(int x, int y) const {
        if (x < 0 || y < 0 || x >= width || y >= height) throw std::out_of_range("off the picture");
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

/// All four bytes of every pixel; a picture without pixels for an empty surface.
Picture fromSurface(const cDIB& DIB);
/// Makes the surface anew with the picture's size and bytes; empties it for a picture without pixels.
void toSurface(const Picture& picture, cDIB& DIB);

/// Empty when both are equal, else the sizes or the first pixel that differs.
std::string firstDifference(const Picture& expected, const Picture& actual);

struct PictureSize {
    int width = 0;
    int height = 0;
};

/// Every width from 1 to 70 with a few small heights, and every height from 1 to 20 with a few widths.
std::vector<PictureSize> sweepSizes();

struct NamedPicture {
    std::string name;
    Picture picture;
};

/// The same pictures for the same size in every run: noise of all and of few values, flat ones, extremes,
/// gradients, specks, colours on a rounding tie. Byte 3 is kSentinel.
std::vector<NamedPicture> sweepPictures(PictureSize size);

/// Every colour whose grey, 0.707 green + 0.222 red + 0.071 blue, is exactly halfway between two integers,
/// so that the order of the sum decides. Byte 3 is kSentinel.
const std::vector<Pixel>& greyTies();

}  // namespace mobrel::test
