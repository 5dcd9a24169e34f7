// SPDX-License-Identifier: MIT
// The pixels around those of a vector. Read once for each set of instructions, hence no pragma.
#if defined(MOBREL_NEIGHBOURHOOD_INL_HPP) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_NEIGHBOURHOOD_INL_HPP
#undef MOBREL_NEIGHBOURHOOD_INL_HPP
#else
#define MOBREL_NEIGHBOURHOOD_INL_HPP
#endif

#include <hwy/highway.h>

#include <cstddef>
#include <cstdint>

#include "filters/kernels/neighbourhood.hpp"
#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

/// A vector that begins at byte `at` of the middle row, and those one pixel beside it.
struct Window {
    const Rows3& rows;
    std::size_t at;

    HWY_INLINE ByteVector belowLeft() const { return load(Bytes(), rows.below + at - 4); }
    HWY_INLINE ByteVector below() const { return load(Bytes(), rows.below + at); }
    HWY_INLINE ByteVector belowRight() const { return load(Bytes(), rows.below + at + 4); }
    HWY_INLINE ByteVector left() const { return load(Bytes(), rows.at + at - 4); }
    HWY_INLINE ByteVector centre() const { return load(Bytes(), rows.at + at); }
    HWY_INLINE ByteVector right() const { return load(Bytes(), rows.at + at + 4); }
    HWY_INLINE ByteVector aboveLeft() const { return load(Bytes(), rows.above + at - 4); }
    HWY_INLINE ByteVector above() const { return load(Bytes(), rows.above + at); }
    HWY_INLINE ByteVector aboveRight() const { return load(Bytes(), rows.above + at + 4); }

    HWY_INLINE ByteVector largestOfPlus() const {
        return hn::Max(hn::Max(hn::Max(above(), below()), hn::Max(left(), right())), centre());
    }
    HWY_INLINE ByteVector largest() const {
        const ByteVector corners =
            hn::Max(hn::Max(belowLeft(), belowRight()), hn::Max(aboveLeft(), aboveRight()));
        return hn::Max(largestOfPlus(), corners);
    }
};

/// Writes rule(window) to the colours of the inner pixels. False for a row that is shorter than a vector. The
/// vectors between the first and the last are stored where no cache line ends inside them; what is written
/// twice comes from the unchanged rows both times.
template <typename Rule>
HWY_INLINE bool forInnerBytes(const Rows3& from, std::uint8_t* to, int width, Rule rule) {
    constexpr std::size_t kFirst = 4;
    const std::size_t step = hn::Lanes(Bytes());
    const std::size_t end = static_cast<std::size_t>(width - 1) * 4;
    if (width < 2 || end < kFirst + step) return false;
    const auto write = [&](std::size_t at) {
        loadAhead(from.above + at);
        const Window window{from, at};
        store(withColours(rule(window), window.centre()), Bytes(), to + at);
    };
    write(kFirst);
    for (std::size_t at = step - reinterpret_cast<std::uintptr_t>(to) % step; at + step <= end; at += step) {
        write(at);
    }
    write(end - step);
    return true;
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif
#endif
