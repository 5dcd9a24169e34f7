// SPDX-License-Identifier: MIT
// Pixels in vectors, for kernels of any kind. Read once for each set of instructions, hence no pragma.
#if defined(MOBREL_PIXEL_LANES_INL_HPP) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_PIXEL_LANES_INL_HPP
#undef MOBREL_PIXEL_LANES_INL_HPP
#else
#define MOBREL_PIXEL_LANES_INL_HPP
#endif

#include <hwy/highway.h>

#include <cstddef>
#include <cstdint>

#include "platform/base/Processor.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// One pixel a lane.
using Pixels = hn::ScalableTag<std::uint32_t>;
using PixelVector = hn::Vec<Pixels>;
/// The same vectors by their bytes, and by pairs of bytes.
using Bytes = hn::Repartition<std::uint8_t, Pixels>;
using ByteVector = hn::Vec<Bytes>;
using Words = hn::Repartition<std::uint16_t, Pixels>;
using WordVector = hn::Vec<Words>;

template <class D>
HWY_INLINE hn::Vec<D> load(D lanes, const std::uint8_t* from) {
    return hn::BitCast(lanes, hn::LoadU(hn::Repartition<std::uint8_t, D>(), from));
}
template <class D>
HWY_INLINE void store(hn::Vec<D> pixels, D, std::uint8_t* to) {
    const hn::Repartition<std::uint8_t, D> bytes;
    hn::StoreU(hn::BitCast(bytes, pixels), bytes, to);
}

template <int kShift, class V>
HWY_INLINE V channel(V pixels) {
    return hn::And(hn::ShiftRight<kShift>(pixels), hn::Set(hn::DFromV<V>(), 0xFF));
}

/// The colours of one and byte 3 of the other.
template <class V>
HWY_INLINE V withColours(V colours, V pixels) {
    const hn::DFromV<V> d;
    const auto areColours = hn::Set(hn::Repartition<std::uint32_t, decltype(d)>(), 0x00FFFFFF);
    return hn::IfVecThenElse(hn::BitCast(d, areColours), colours, pixels);
}

/// Line i of each block of 4 x 4 pixels becomes its column i.
template <class V>
HWY_INLINE void transposeBlocks(V (&lines)[4]) {
    const hn::DFromV<V> d;
    const V lowerEven = hn::InterleaveLower(d, lines[0], lines[2]);
    const V lowerOdd = hn::InterleaveLower(d, lines[1], lines[3]);
    const V upperEven = hn::InterleaveUpper(d, lines[0], lines[2]);
    const V upperOdd = hn::InterleaveUpper(d, lines[1], lines[3]);
    lines[0] = hn::InterleaveLower(d, lowerEven, lowerOdd);
    lines[1] = hn::InterleaveUpper(d, lowerEven, lowerOdd);
    lines[2] = hn::InterleaveLower(d, upperEven, upperOdd);
    lines[3] = hn::InterleaveUpper(d, upperEven, upperOdd);
}

/// Calls work(first byte of a vector of pixels) as often as whole vectors are there; how many pixels these
/// are. `fresh` is the row that comes from memory.
template <typename Work>
HWY_INLINE std::size_t forVectors(const std::uint8_t* fresh, std::size_t count, const Work& work) {
    const std::size_t step = hn::Lanes(Pixels());
    std::size_t done = 0;
    for (; done + step <= count; done += step) {
        loadAhead(fresh + done * 4);
        work(done * 4);
    }
    return done;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif
#endif
