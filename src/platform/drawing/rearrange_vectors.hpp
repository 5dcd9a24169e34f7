// SPDX-License-Identifier: MIT
// Vectors of whole pixels rearranged: mirrored, transposed, packed, expanded and repeated.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

// Each does as much as fills vectors and tells how much that is: nothing where the processor has no
// vectors. The rest is the caller's. A pixel is 4 bytes.

/// Swaps pixels of a row of `count` with their mirror images, all four bytes, from both ends towards the
/// middle. The number of pixels at each end that are done.
extern const VectorKernel<std::size_t(std::uint8_t* row, std::size_t count)> mirrorPixels;

/// Packs pixels to 3 bytes each, without byte 3. The number of pixels that are done. Nothing behind the
/// 3 * `count` bytes of `to` is written.
extern const VectorKernel<std::size_t(const std::uint8_t* from, std::size_t count, std::uint8_t* to)>
    packPixels;

/// Expands 3 bytes each to pixels whose byte 3 is 0. The number of pixels that are done. Nothing behind the
/// 3 * `count` bytes of `from` is read.
extern const VectorKernel<std::size_t(const std::uint8_t* from, std::size_t count, std::uint8_t* to)>
    expandPixels;

/// Writes each pixel `times` times in a row. The number of pixels of `from` that are done: none above
/// kMostTimes, where plain stores are as fast. Nothing behind `count` times `times` pixels is written.
inline constexpr std::size_t kMostTimes = 16;
extern const VectorKernel<std::size_t(const std::uint8_t* from, std::size_t count, std::size_t times,
                                      std::uint8_t* to)>
    repeatPixels;

/// Lines of pixels, `stride` bytes from each to the next; negative where they run backwards in memory.
template <typename Byte>
struct PixelLines {
    Byte* first;
    std::ptrdiff_t stride;

    Byte* line(std::ptrdiff_t i) const { return first + i * stride; }
};

/// The side of a tile in pixels.
inline constexpr int kTileSide = 32;

/// Writes the columns of a square tile as lines. The two share no memory. False, with nothing written, where
/// there are no vectors.
extern const VectorKernel<bool(const PixelLines<const std::uint8_t>& from,
                               const PixelLines<std::uint8_t>& to)>
    transposeTile;

}  // namespace mobrel::kernels
