// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "filters/kernels/neighbourhood_bytes.hpp"

#include <cstddef>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/neighbourhood_bytes.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

bool MaximumBytes(const Rows3&, std::uint8_t*, int) {
    return false;
}
bool MinimumBytes(const Rows3&, std::uint8_t*, int) {
    return false;
}
bool ContourBytes(const Rows3&, std::uint8_t*, int) {
    return false;
}
bool BlurBytes(const Rows3&, std::uint8_t*, int, WeightedMean) {
    return false;
}
bool SoftenBytes(const Rows3&, std::uint8_t*, int, WeightedMean) {
    return false;
}
bool SharpenBytes(const Rows3&, std::uint8_t*, int, WeightedMean) {
    return false;
}

#else

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using Words = hn::ScalableTag<std::uint16_t>;
using ByteVector = hn::Vec<Bytes>;
using WordVector = hn::Vec<Words>;

/// The nine rows of bytes around a run of pixels.
struct Window {
    const Rows3& rows;
    std::size_t at;

    HWY_INLINE ByteVector load(const std::uint8_t* row, int column) const {
        return hn::LoadU(Bytes(), row + at + column * 4);
    }
    HWY_INLINE ByteVector centre() const { return load(rows.at, 0); }
    HWY_INLINE ByteVector left() const { return load(rows.at, -1); }
    HWY_INLINE ByteVector right() const { return load(rows.at, 1); }
    HWY_INLINE ByteVector above() const { return load(rows.above, 0); }
    HWY_INLINE ByteVector below() const { return load(rows.below, 0); }
};

/// Every second byte as a number of 16 bits.
HWY_INLINE WordVector evens(ByteVector bytes) {
    return hn::And(hn::BitCast(Words(), bytes), hn::Set(Words(), 0x00FF));
}
HWY_INLINE WordVector odds(ByteVector bytes) {
    return hn::ShiftRight<8>(hn::BitCast(Words(), bytes));
}
HWY_INLINE ByteVector joined(WordVector even, WordVector odd) {
    return hn::BitCast(Bytes(), hn::Or(even, hn::ShiftLeft<8>(odd)));
}

struct WordPair {
    WordVector even;
    WordVector odd;

    HWY_INLINE explicit WordPair(ByteVector bytes) : even(evens(bytes)), odd(odds(bytes)) {}
    HWY_INLINE void add(ByteVector bytes) {
        even = hn::Add(even, evens(bytes));
        odd = hn::Add(odd, odds(bytes));
    }
};

HWY_INLINE WordPair besideSum(const Window& s) {
    WordPair sum(s.below());
    sum.add(s.above());
    sum.add(s.right());
    sum.add(s.left());
    return sum;
}

HWY_INLINE WordPair aroundSum(const Window& s) {
    WordPair sum = besideSum(s);
    sum.add(s.load(s.rows.below, -1));
    sum.add(s.load(s.rows.below, 1));
    sum.add(s.load(s.rows.above, -1));
    sum.add(s.load(s.rows.above, 1));
    return sum;
}

HWY_INLINE ByteVector plusMaximum(const Window& s) {
    return hn::Max(hn::Max(hn::Max(s.above(), s.below()), hn::Max(s.left(), s.right())), s.centre());
}

struct Maximum {
    HWY_INLINE ByteVector operator()(const Window& s) const { return plusMaximum(s); }
};

struct Minimum {
    HWY_INLINE ByteVector operator()(const Window& s) const {
        return hn::Min(hn::Min(hn::Min(s.above(), s.below()), hn::Min(s.left(), s.right())), s.centre());
    }
};

struct Contour {
    HWY_INLINE ByteVector operator()(const Window& s) const {
        const ByteVector below = hn::Max(s.load(s.rows.below, -1), s.load(s.rows.below, 1));
        const ByteVector above = hn::Max(s.load(s.rows.above, -1), s.load(s.rows.above, 1));
        const ByteVector largest = hn::Max(plusMaximum(s), hn::Max(below, above));
        return hn::Not(hn::Sub(largest, s.centre()));
    }
};

/// Quotients of numbers below 2^15.
struct Divide {
    WordVector factor;
    int shift;
    HWY_INLINE explicit Divide(const WordDivisor& by)
        : factor(hn::Set(Words(), by.factor)), shift(by.shift) {}
    HWY_INLINE WordVector operator()(WordVector n) const {
        return hn::ShiftRightSame(hn::MulHigh(n, factor), shift);
    }
};

template <WordPair (*Sum)(const Window&)>
struct Mean {
    WordVector weight;
    Divide divide;
    HWY_INLINE ByteVector operator()(const Window& s) const {
        WordPair sum = Sum(s);
        const ByteVector c = s.centre();
        return joined(divide(hn::Add(sum.even, hn::Mul(weight, evens(c)))),
                      divide(hn::Add(sum.odd, hn::Mul(weight, odds(c)))));
    }
};

struct Sharpen {
    WordVector weight;
    Divide divide;
    HWY_INLINE WordVector limited(WordVector c, WordVector around) const {
        const WordVector n = hn::SaturatedSub(hn::Mul(weight, c), around);
        return hn::Min(divide(n), hn::Set(Words(), 255));
    }
    HWY_INLINE ByteVector operator()(const Window& s) const {
        const WordPair around = aroundSum(s);
        const ByteVector c = s.centre();
        return joined(limited(evens(c), around.even), limited(odds(c), around.odd));
    }
};

/// Writes rule(window) to the colours of the inner pixels. False for a row that is shorter than a vector. The
/// vectors between the first and the last are stored where no cache line ends inside them; what is written
/// twice comes from the unchanged rows both times.
template <typename Rule>
HWY_INLINE bool forInnerBytes(const Rows3& from, std::uint8_t* to, int width, Rule rule) {
    const Bytes d;
    constexpr std::size_t kFirst = 4;
    const std::size_t step = hn::Lanes(d);
    const std::size_t end = static_cast<std::size_t>(width - 1) * 4;
    if (width < 2 || end < kFirst + step) return false;
    const ByteVector colours = hn::BitCast(d, hn::Set(hn::ScalableTag<std::uint32_t>(), 0x00FFFFFFU));
    const auto write = [&](std::size_t at) {
        loadAhead(from.above + at);
        const Window window{from, at};
        hn::StoreU(hn::Or(hn::And(colours, rule(window)), hn::AndNot(colours, window.centre())), d, to + at);
    };
    write(kFirst);
    for (std::size_t at = step - reinterpret_cast<std::uintptr_t>(to) % step; at + step <= end; at += step) {
        write(at);
    }
    write(end - step);
    return true;
}

bool MaximumBytes(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Maximum());
}
bool MinimumBytes(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Minimum());
}
bool ContourBytes(const Rows3& from, std::uint8_t* to, int width) {
    return forInnerBytes(from, to, width, Contour());
}
bool BlurBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width,
                         Mean<aroundSum>{hn::Set(Words(), mean.weight), Divide(mean.divisor)});
}
bool SoftenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width,
                         Mean<besideSum>{hn::Set(Words(), mean.weight), Divide(mean.divisor)});
}
bool SharpenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return forInnerBytes(from, to, width, Sharpen{hn::Set(Words(), mean.weight), Divide(mean.divisor)});
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(MaximumBytes);
MOBREL_VECTORS(MinimumBytes);
MOBREL_VECTORS(ContourBytes);
MOBREL_VECTORS(BlurBytes);
MOBREL_VECTORS(SoftenBytes);
MOBREL_VECTORS(SharpenBytes);

bool maximumBytes(const Rows3& from, std::uint8_t* to, int width) {
    return MOBREL_BEST(MaximumBytes)(from, to, width);
}
bool minimumBytes(const Rows3& from, std::uint8_t* to, int width) {
    return MOBREL_BEST(MinimumBytes)(from, to, width);
}
bool contourBytes(const Rows3& from, std::uint8_t* to, int width) {
    return MOBREL_BEST(ContourBytes)(from, to, width);
}
bool blurBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return MOBREL_BEST(BlurBytes)(from, to, width, mean);
}
bool softenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return MOBREL_BEST(SoftenBytes)(from, to, width, mean);
}
bool sharpenBytes(const Rows3& from, std::uint8_t* to, int width, WeightedMean mean) {
    return MOBREL_BEST(SharpenBytes)(from, to, width, mean);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
