// SPDX-License-Identifier: MIT
// Turns the pixels of a bitmap file, of any depth, into true colour.
#pragma once

#include <array>
#include <cstdint>

#include "platform/pictures/BmpHeader.hpp"

namespace mobrel {

/// Expands packed pixels of one file. Holds all it needs in tables, so the loops have no decisions.
class BmpPixels {
 public:
    explicit BmpPixels(const BmpHeader& header);

    /// Writes `count` pixels (blue, green, red, 0) to `out`. The first starts in the highest bits of
    /// packed[0]; exactly the bytes that hold the pixels are read. The areas must not overlap.
    void expand(const std::uint8_t* packed, int count, std::uint8_t* out) const;

 private:
    // A channel of a masked pixel: its highest 8 bits, or all it has, choose the value.
    struct Channel {
        std::uint32_t mask = 0;
        int shift = 0;
        std::array<std::uint8_t, 256> values{};

        std::uint8_t of(std::uint32_t pixel) const { return values[(pixel & mask) >> shift]; }
    };
    static Channel channelOf(std::uint32_t mask);

    void expand1(const std::uint8_t* packed, int count, std::uint8_t* out) const;
    void expand4(const std::uint8_t* packed, int count, std::uint8_t* out) const;
    void expand8(const std::uint8_t* packed, int count, std::uint8_t* out) const;
    void expandMasked16(const std::uint8_t* packed, int count, std::uint8_t* out) const;
    void expandMasked32(const std::uint8_t* packed, int count, std::uint8_t* out) const;
    void putMasked(std::uint32_t pixel, std::uint8_t* out) const;
    void putIndexed(unsigned index, std::uint8_t* out) const;

    int m_bits;
    bool m_isPlain32;  // 32 bits whose masks are those of the result
    std::array<RgbQuad, 256> m_colors{};
    Channel m_red;
    Channel m_green;
    Channel m_blue;
};

}  // namespace mobrel
