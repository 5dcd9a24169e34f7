// SPDX-License-Identifier: MIT
#include "platform/drawing/rearrange_vectors.hpp"

#include <algorithm>

#define HWY_TARGET_INCLUDE "platform/drawing/rearrange_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// Four pixels, whatever the processor has.
using FourPixels = hn::FixedTag<std::uint32_t, 4>;

std::size_t mirrorPixels(std::uint8_t* row, std::size_t count) {
    const Pixels d;
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; 2 * (done + step) <= count; done += step) {
        std::uint8_t* const left = row + done * 4;
        std::uint8_t* const right = row + (count - done - step) * 4;
        const auto kept = hn::Reverse(d, load(d, left));
        store(hn::Reverse(d, load(d, right)), d, left);
        store(kept, d, right);
    }
    return done;
}

/// Where the lanes of a vector of packed pixels, 12 bytes a block, stand in one of 16 bytes a block.
HWY_INLINE auto spreadLanes() {
    HWY_ALIGN std::int32_t lanes[hn::MaxLanes(Pixels())];
    for (std::size_t i = 0; i < hn::Lanes(Pixels()); ++i) {
        lanes[i] = static_cast<std::int32_t>(i / 4 * 3 + i % 4);
    }
    return hn::SetTableIndices(Pixels(), lanes);
}

/// The way back; the last quarter of the lanes is left over.
HWY_INLINE auto gatheredLanes() {
    HWY_ALIGN std::int32_t lanes[hn::MaxLanes(Pixels())];
    for (std::size_t i = 0; i < hn::Lanes(Pixels()); ++i) {
        lanes[i] = i < hn::Lanes(Pixels()) / 4 * 3 ? static_cast<std::int32_t>(i / 3 * 4 + i % 3) : 3;
    }
    return hn::SetTableIndices(Pixels(), lanes);
}

/// A whole vector is stored each time, so its last quarter must find room, too.
std::size_t packPixels(const std::uint8_t* from, std::size_t count, std::uint8_t* to) {
    HWY_ALIGN static constexpr std::uint8_t kColours[16] = {0,  1,  2,  4,  5,    6,    8,    9,
                                                            10, 12, 13, 14, 0x80, 0x80, 0x80, 0x80};
    const Pixels d;
    const auto colours = hn::LoadDup128(Bytes(), kColours);
    const auto gathered = gatheredLanes();
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done * 3 + step * 4 <= count * 3; done += step) {
        loadAhead(from + done * 4);
        const auto pixels = hn::LoadU(Bytes(), from + done * 4);
        const auto packed = hn::BitCast(d, hn::TableLookupBytesOr0(pixels, colours));
        store(hn::TableLookupLanes(packed, gathered), d, to + done * 3);
    }
    return done;
}

/// A whole vector is loaded each time, so its last quarter must be there, too.
std::size_t expandPixels(const std::uint8_t* from, std::size_t count, std::uint8_t* to) {
    HWY_ALIGN static constexpr std::uint8_t kColours[16] = {0, 1, 2, 0x80, 3, 4,  5,  0x80,
                                                            6, 7, 8, 0x80, 9, 10, 11, 0x80};
    const Pixels d;
    const auto colours = hn::LoadDup128(Bytes(), kColours);
    const auto spread = spreadLanes();
    const std::size_t step = hn::Lanes(d);
    std::size_t done = 0;
    for (; done * 3 + step * 4 <= count * 3; done += step) {
        const auto packed = hn::TableLookupLanes(load(d, from + done * 3), spread);
        hn::StoreU(hn::TableLookupBytesOr0(hn::BitCast(Bytes(), packed), colours), Bytes(), to + done * 4);
    }
    return done;
}

/// A vector of pixels becomes `times` vectors.
std::size_t repeatPixels(const std::uint8_t* from, std::size_t count, std::size_t times, std::uint8_t* to) {
    const Pixels d;
    const std::size_t step = hn::Lanes(d);
    if (times > kMostTimes || count < step) return 0;
    HWY_ALIGN std::int32_t lanes[kMostTimes * hn::MaxLanes(Pixels())];
    for (std::size_t lane = 0; lane < step; ++lane) {
        std::fill_n(lanes + lane * times, times, static_cast<std::int32_t>(lane));
    }
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        const auto pixels = load(d, from + done * 4);
        for (std::size_t i = 0; i < times; ++i) {
            store(hn::TableLookupLanes(pixels, hn::SetTableIndices(d, lanes + i * step)), d, to);
            to += step * 4;
        }
    }
    return done;
}

/// Four pixels of each of four lines become four lines, `kTileSide` pixels apart.
HWY_INLINE void transposeFour(const PixelLines<const std::uint8_t>& from, std::uint8_t* to) {
    const FourPixels d;
    hn::Vec<FourPixels> lines[4] = {load(d, from.line(0)), load(d, from.line(1)), load(d, from.line(2)),
                                    load(d, from.line(3))};
    transposeBlocks(lines);
    for (const auto& line : lines) {
        store(line, d, to);
        to += std::ptrdiff_t{kTileSide} * 4;
    }
}

/// The tile is turned in memory of its own, so that each line of either side is touched once, in one piece:
/// where lines are far apart they push each other out of the cache.
bool transposeTile(const PixelLines<const std::uint8_t>& from, const PixelLines<std::uint8_t>& to) {
    constexpr std::size_t kLine = std::size_t{kTileSide} * 4;
    HWY_ALIGN std::uint8_t tile[kTileSide * kLine];
    for (int y = 0; y < kTileSide; y += 4) {
        for (int x = 0; x < kTileSide; x += 4) {
            transposeFour({from.line(y) + x * 4, from.stride},
                          tile + static_cast<std::size_t>(x) * kLine + static_cast<std::size_t>(y) * 4);
        }
    }
    const Pixels d;
    for (int x = 0; x < kTileSide; ++x) {
        const std::uint8_t* const line = tile + static_cast<std::size_t>(x) * kLine;
        for (std::size_t at = 0; at < kLine; at += hn::Lanes(d) * 4)
            store(load(d, line + at), d, to.line(x) + at);
    }
    return true;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(mirrorPixels);
MOBREL_VECTOR_KERNEL(packPixels);
MOBREL_VECTOR_KERNEL(expandPixels);
MOBREL_VECTOR_KERNEL(repeatPixels);
MOBREL_VECTOR_KERNEL(transposeTile);

}  // namespace mobrel::kernels

#endif
