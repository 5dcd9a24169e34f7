// SPDX-License-Identifier: MIT
#include "support/TestPictures.hpp"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <random>

namespace mobrel::test {
namespace {

/// Sets every pixel to pixelOf(x, y), which gives blue, green, red.
template <typename PixelOf>
Picture filled(PictureSize size, PixelOf&& pixelOf) {
    Picture picture(size.width, size.height);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const std::array<int, 3> color = pixelOf(x, y);
            for (const std::size_t c : kChannels) picture.at(x, y)[c] = static_cast<std::uint8_t>(color[c]);
            picture.at(x, y)[3] = kSentinel;
        }
    }
    return picture;
}

Picture flat(PictureSize size, std::array<int, 3> color) {
    return filled(size, [&](int, int) { return color; });
}

/// Each channel on its own from low to high.
Picture noise(PictureSize size, int low, int high) {
    std::mt19937 generator(static_cast<std::mt19937::result_type>(size.width * 1000 + size.height));
    const auto next = [&] {
        return low + static_cast<int>(generator() % static_cast<unsigned>(high - low + 1));
    };
    return filled(size, [&](int, int) {
        const int blue = next();
        const int green = next();
        const int red = next();
        return std::array{blue, green, red};
    });
}

Picture checker(PictureSize size) {
    return filled(size, [](int x, int y) {
        const int value = (x + y) % 2 * 255;
        return std::array{value, 255 - value, value};
    });
}

/// Blue rises with x, green falls with y, red rises with both.
Picture gradient(PictureSize size) {
    return filled(size, [&](int x, int y) {
        const int across = 255 * x / std::max(1, size.width - 1);
        const int along = 255 * y / std::max(1, size.height - 1);
        return std::array{across, 255 - along, (across + along) / 2};
    });
}

/// Single pixels apart from each other, none in the outermost ring of a picture 4 x 3 or larger.
Picture specks(PictureSize size, int field, int speck) {
    return filled(size, [&](int x, int y) {
        const bool isSpeck = x % 5 == 2 && y % 4 == 1;
        return isSpeck ? std::array{speck, field, speck} : std::array{field, field, field};
    });
}

Picture ties(PictureSize size) {
    const std::vector<Pixel>& colors = greyTies();
    std::size_t next = 0;
    return filled(size, [&](int, int) {
        next = (next + 4999) % colors.size();  // far apart, so that small pictures hold mixed colours
        const Pixel& color = colors[next];
        return std::array<int, 3>{color[kBlue], color[kGreen], color[kRed]};
    });
}

std::string textOf(const Pixel& pixel) {
    std::string text;
    for (const std::uint8_t byte : pixel) text += ' ' + std::to_string(byte);
    return text;
}

std::string textOf(const Picture& picture) {
    return std::to_string(picture.width) + " x " + std::to_string(picture.height);
}

std::vector<Pixel> findGreyTies() {
    std::vector<Pixel> found;
    for (int green = 0; green <= 255; ++green) {
        for (int red = 0; red <= 255; ++red) {
            for (int blue = 0; blue <= 255; ++blue) {
                if ((707 * green + 222 * red + 71 * blue) % 1000 != 500) continue;
                found.push_back({static_cast<std::uint8_t>(blue), static_cast<std::uint8_t>(green),
                                 static_cast<std::uint8_t>(red), kSentinel});
            }
        }
    }
    return found;
}

}  // namespace

Picture fromSurface(const cDIB& DIB) {
    if (DIB.hDIB() == nullptr) return {};
    Picture picture(DIB.Width(), DIB.Height());
    std::memcpy(picture.pixels.data(), DIB.DIBitsPtr(), picture.pixels.size() * sizeof(Pixel));
    return picture;
}

void toSurface(const Picture& picture, cDIB& DIB) {
    if (picture.isEmpty()) {
        DIB.Destroy();
        return;
    }
    if (!DIB.Create(picture.width, picture.height, 0)) throw std::runtime_error("no surface for the picture");
    std::memcpy(DIB.DIBitsPtr(), picture.pixels.data(), picture.pixels.size() * sizeof(Pixel));
}

std::string firstDifference(const Picture& expected, const Picture& actual) {
    if (expected.width != actual.width || expected.height != actual.height) {
        return "expected " + textOf(expected) + ", was " + textOf(actual);
    }
    for (int y = 0; y < expected.height; ++y) {
        for (int x = 0; x < expected.width; ++x) {
            if (expected.at(x, y) == actual.at(x, y)) continue;
            return textOf(expected) + ", pixel (" + std::to_string(x) + ", " + std::to_string(y) +
                   "): expected" + textOf(expected.at(x, y)) + ", was" + textOf(actual.at(x, y));
        }
    }
    return {};
}

std::vector<PictureSize> sweepSizes() {
    const std::initializer_list<int> smallHeights = {1, 2, 3, 4, 5, 9};
    std::vector<PictureSize> sizes;
    for (int width = 1; width <= 70; ++width) {
        for (const int height : smallHeights) sizes.push_back({width, height});
    }
    for (int height = 1; height <= 20; ++height) {
        if (std::find(smallHeights.begin(), smallHeights.end(), height) != smallHeights.end()) continue;
        for (const int width : {1, 2, 3, 8, 17, 33}) sizes.push_back({width, height});
    }
    return sizes;
}

std::vector<NamedPicture> sweepPictures(PictureSize size) {
    return {
        {"noise", noise(size, 0, 255)},
        {"faint noise", noise(size, 126, 130)},
        {"black", flat(size, {0, 0, 0})},
        {"white", flat(size, {255, 255, 255})},
        {"flat colour", flat(size, {17, 200, 131})},
        {"checker", checker(size)},
        {"gradient", gradient(size)},
        {"dark specks", specks(size, 255, 0)},
        {"bright specks", specks(size, 3, 250)},
        {"grey ties", ties(size)},
    };
}

const std::vector<Pixel>& greyTies() {
    static const std::vector<Pixel> found = findGreyTies();
    return found;
}

}  // namespace mobrel::test
