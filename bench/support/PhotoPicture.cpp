// SPDX-License-Identifier: MIT
#include "support/PhotoPicture.hpp"

#include <algorithm>
#include <cstdint>

namespace mobrel::bench {
namespace {

constexpr int kDiscCell = 96;

std::uint32_t hash(int x, int y, std::uint32_t seed) {
    std::uint32_t h = static_cast<std::uint32_t>(x) * 0x9E3779B1U;
    h ^= static_cast<std::uint32_t>(y) * 0x85EBCA6BU;
    h ^= seed * 0xC2B2AE35U;
    h = (h ^ (h >> 16)) * 0x7FEB352DU;
    h = (h ^ (h >> 15)) * 0x846CA68BU;
    return h ^ (h >> 16);
}

/// Linear between random heights of 0 to 255 at the corners of cells with sides of 2^shift pixels.
int hill(int x, int y, int shift, std::uint32_t seed) {
    const int side = 1 << shift;
    const int column = x >> shift, line = y >> shift;
    const int u = x & (side - 1), v = y & (side - 1);
    const auto height = [&](int dx, int dy) {
        return static_cast<int>(hash(column + dx, line + dy, seed) & 255);
    };
    const int lower = height(0, 0) * (side - u) + height(1, 0) * u;
    const int upper = height(0, 1) * (side - u) + height(1, 1) * u;
    return static_cast<int>((std::int64_t{lower} * (side - v) + std::int64_t{upper} * v) >> (2 * shift));
}

/// What the disc of the place's cell adds to a channel; 0 beside it.
int disc(int x, int y, std::uint32_t channel) {
    const int column = x / kDiscCell, line = y / kDiscCell;
    const std::uint32_t h = hash(column, line, 7);
    const int radius = 12 + static_cast<int>(h % 32);
    const int dx = x - column * kDiscCell - kDiscCell / 2;
    const int dy = y - line * kDiscCell - kDiscCell / 2;
    if (dx * dx + dy * dy > radius * radius) return 0;
    return static_cast<int>(hash(column, line, 8 + channel) % 129) - 64;
}

std::uint8_t sample(int x, int y, std::uint32_t channel) {
    const int ground = 24 + hill(x, y, 9, 1) / 2 + hill(x, y, 8, 2 + channel) / 3;
    const int grain = static_cast<int>(hash(x, y, 11 + channel) % 9) - 4;
    return static_cast<std::uint8_t>(std::clamp(ground + disc(x, y, channel) + grain, 0, 255));
}

}  // namespace

void paintPhoto(cDIB& picture) {
    std::uint8_t* byte = picture.DIBitsPtr();
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            for (std::uint32_t channel = 0; channel < 3; ++channel) *byte++ = sample(x, y, channel);
            *byte++ = 0;
        }
    }
}

}  // namespace mobrel::bench
