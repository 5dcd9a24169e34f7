// SPDX-License-Identifier: MIT
// The loops that expand pixels, one a depth.
#include "platform/pictures/BmpPixels.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

#include "platform/drawing/rearrange_vectors.hpp"
#include "platform/pictures/LittleEndian.hpp"

namespace mobrel {

namespace {

static_assert(sizeof(RgbQuad) == 4 && std::is_trivially_copyable_v<RgbQuad>);

// A value of `bits` bits (1 to 8) widened to 8 by repeating its bits, so that all ones become 255.
std::uint8_t widened(unsigned value, int bits) {
    unsigned wide = 0;
    for (int shift = 8 - bits; shift > -bits; shift -= bits) {
        wide |= shift >= 0 ? value << shift : value >> -shift;
    }
    return static_cast<std::uint8_t>(wide);
}

void expand24(const std::uint8_t* packed, int count, std::uint8_t* out) {
    const auto done = static_cast<int>(kernels::expandPixels(packed, static_cast<std::size_t>(count), out));
    packed += done * 3;
    out += done * 4;
    for (int rest = count - done; rest > 0; --rest, packed += 3, out += 4) {
        out[0] = packed[0];
        out[1] = packed[1];
        out[2] = packed[2];
        out[3] = 0;
    }
}

void expandPlain32(const std::uint8_t* packed, int count, std::uint8_t* out) {
    for (int i = 0; i < count; ++i) storeU32(out + i * 4, loadU32(packed + i * 4) & 0xFFFFFF);
}

}  // namespace

BmpPixels::BmpPixels(const BmpHeader& header)
    : m_bits(header.bits),
      m_isPlain32(header.bits == 32 && header.masks == kMasks888),
      m_red(channelOf(header.masks.red)),
      m_green(channelOf(header.masks.green)),
      m_blue(channelOf(header.masks.blue)) {
    std::ranges::copy(header.colorTable, m_colors.begin());
}

BmpPixels::Channel BmpPixels::channelOf(std::uint32_t mask) {
    Channel channel;
    if (mask == 0) return channel;
    const int bits = std::popcount(mask);
    const int used = std::min(bits, 8);
    channel.mask = mask;
    channel.shift = std::countr_zero(mask) + bits - used;
    for (unsigned value = 0; value < 1U << used; ++value) channel.values[value] = widened(value, used);
    return channel;
}

void BmpPixels::expand(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    switch (m_bits) {
        case 1:
            return expand1(packed, count, out);
        case 4:
            return expand4(packed, count, out);
        case 8:
            return expand8(packed, count, out);
        case 16:
            return expandMasked16(packed, count, out);
        case 24:
            return expand24(packed, count, out);
        default:
            return m_isPlain32 ? expandPlain32(packed, count, out) : expandMasked32(packed, count, out);
    }
}

void BmpPixels::putIndexed(unsigned index, std::uint8_t* out) const {
    std::memcpy(out, &m_colors[index], sizeof(RgbQuad));
}

void BmpPixels::expand1(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i) putIndexed(packed[i / 8] >> (7 - i % 8) & 1U, out + i * 4);
}

void BmpPixels::expand4(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i) putIndexed(packed[i / 2] >> (i % 2 == 0 ? 4 : 0) & 15U, out + i * 4);
}

void BmpPixels::expand8(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i) putIndexed(packed[i], out + i * 4);
}

void BmpPixels::putMasked(std::uint32_t pixel, std::uint8_t* out) const {
    const std::uint32_t color = static_cast<std::uint32_t>(m_blue.of(pixel)) |
                                static_cast<std::uint32_t>(m_green.of(pixel)) << 8 |
                                static_cast<std::uint32_t>(m_red.of(pixel)) << 16;
    storeU32(out, color);
}

void BmpPixels::expandMasked16(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i) putMasked(loadU16(packed + i * 2), out + i * 4);
}

void BmpPixels::expandMasked32(const std::uint8_t* packed, int count, std::uint8_t* out) const {
    for (int i = 0; i < count; ++i) putMasked(loadU32(packed + i * 4), out + i * 4);
}

}  // namespace mobrel
