// SPDX-License-Identifier: MIT
// Compiled once for each set of instructions; the processor's best is chosen when it runs.
#include "filters/kernels/rounded_vectors.hpp"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/rounded_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "filters/kernels/pixel_vectors-inl.hpp"
#include "platform/base/Processor.hpp"

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

#if HWY_TARGET == HWY_SCALAR  // one lane is no vector

std::size_t Scale(std::uint8_t*, std::size_t, double) {
    return 0;
}
std::size_t Saturation(std::uint8_t*, std::size_t, double) {
    return 0;
}
std::size_t Emboss(const std::uint8_t*, const std::uint8_t*, std::uint8_t*, std::size_t, double) {
    return 0;
}
std::size_t Relief(const Rows3&, std::uint8_t*, std::size_t, double, double) {
    return 0;
}
std::size_t Outline(const Rows3&, std::uint8_t*, std::size_t, double, double) {
    return 0;
}
std::size_t Texture(std::uint8_t*, std::size_t, const std::uint8_t*) {
    return 0;
}
std::size_t BySum(std::uint8_t*, std::size_t, const std::uint32_t*) {
    return 0;
}

#else

struct ScaleWork {
    std::uint8_t* row;
    double f;

    HWY_INLINE IntegerVector scaled(IntegerVector c) const {
        return limited((Numbers(f) * Numbers(c)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(row + at);
        store(joined(scaled(channel<0>(pixels)), scaled(channel<8>(pixels)), scaled(channel<16>(pixels)),
                     pixels),
              row + at);
    }
};

std::size_t Scale(std::uint8_t* row, std::size_t count, double f) {
    return forVectors(row, count, ScaleWork{row, f});
}

struct SaturationWork {
    std::uint8_t* row;
    double f;

    HWY_INLINE IntegerVector moved(IntegerVector c, IntegerVector grey) const {
        return limited((Numbers(f) * Numbers(hn::Sub(c, grey)) + Numbers(c)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(row + at);
        // n div 3 for n up to 765.
        const IntegerVector grey =
            hn::ShiftRight<16>(hn::Mul(sumOfChannels(pixels), hn::Set(Integers(), 21846)));
        store(joined(moved(channel<0>(pixels), grey), moved(channel<8>(pixels), grey),
                     moved(channel<16>(pixels), grey), pixels),
              row + at);
    }
};

std::size_t Saturation(std::uint8_t* row, std::size_t count, double f) {
    return forVectors(row, count, SaturationWork{row, f});
}

struct EmbossWork {
    const std::uint8_t* from;
    const std::uint8_t* neighbours;
    std::uint8_t* to;
    double f;

    HWY_INLINE IntegerVector raised(IntegerVector c, IntegerVector neighbour) const {
        return limited(magnitude(Numbers(f) * Numbers(hn::Sub(c, neighbour)) + Numbers(128.0)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(from + at);
        const IntegerVector beside = load(neighbours + at);
        store(joined(raised(channel<0>(pixels), channel<0>(beside)),
                     raised(channel<8>(pixels), channel<8>(beside)),
                     raised(channel<16>(pixels), channel<16>(beside)), load(to + at)),
              to + at);
    }
};

std::size_t Emboss(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to,
                   std::size_t count, double f) {
    return forVectors(neighbours, count, EmbossWork{from, neighbours, to, f});
}

/// Of each byte the larger one.
HWY_INLINE IntegerVector larger(IntegerVector a, IntegerVector b) {
    const hn::Repartition<std::uint8_t, Integers> bytes;
    return hn::BitCast(Integers(), hn::Max(hn::BitCast(bytes, a), hn::BitCast(bytes, b)));
}

/// The nine pixels of which the first of a vector begins at byte `at` of the middle row.
struct Nine {
    IntegerVector belowLeft, below, belowRight;
    IntegerVector left, centre, right;
    IntegerVector aboveLeft, above, aboveRight;

    HWY_INLINE Nine(const Rows3& rows, std::size_t at)
        : belowLeft(load(rows.below + at - 4)),
          below(load(rows.below + at)),
          belowRight(load(rows.below + at + 4)),
          left(load(rows.at + at - 4)),
          centre(load(rows.at + at)),
          right(load(rows.at + at + 4)),
          aboveLeft(load(rows.above + at - 4)),
          above(load(rows.above + at)),
          aboveRight(load(rows.above + at + 4)) {}

    template <int kShift>
    HWY_INLINE IntegerVector sumOfFive() const {
        return hn::Add(hn::Add(hn::Add(channel<kShift>(below), channel<kShift>(above)),
                               hn::Add(channel<kShift>(left), channel<kShift>(right))),
                       channel<kShift>(centre));
    }
    HWY_INLINE IntegerVector largest() const {
        return larger(larger(larger(belowLeft, below), larger(belowRight, left)),
                      larger(larger(centre, right), larger(larger(aboveLeft, above), aboveRight)));
    }
};

struct ReliefWork {
    const Rows3& rows;
    std::uint8_t* to;
    double k;
    double inverse;

    template <int kShift>
    HWY_INLINE IntegerVector raised(const Nine& s) const {
        const IntegerVector lit = hn::Add(hn::Add(channel<kShift>(s.belowRight), channel<kShift>(s.right)),
                                          channel<kShift>(s.below));
        const IntegerVector shaded =
            hn::Add(hn::Add(channel<kShift>(s.aboveLeft), channel<kShift>(s.above)), channel<kShift>(s.left));
        const IntegerVector centre = (Numbers(channel<kShift>(s.centre)) * Numbers(k)).rounded();
        return limited((Numbers(hn::Add(centre, hn::Sub(lit, shaded))) * Numbers(inverse)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const Nine s(rows, at + 4);
        store(joined(raised<0>(s), raised<8>(s), raised<16>(s), s.centre), to + at + 4);
    }
};

std::size_t Relief(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double inverse) {
    return forVectors(from.above, count, ReliefWork{from, to, k, inverse});
}

struct OutlineWork {
    const Rows3& rows;
    std::uint8_t* to;
    double k;
    double shift;

    template <int kShift>
    HWY_INLINE IntegerVector drawn(const Nine& s, IntegerVector largest) const {
        // n div 5 for n up to 1,275.
        const IntegerVector mean =
            hn::ShiftRight<16>(hn::Mul(s.sumOfFive<kShift>(), hn::Set(Integers(), 13108)));
        const IntegerVector edge = hn::Sub(channel<kShift>(largest), channel<kShift>(s.centre));
        return limited((Numbers(mean) - Numbers(k) * Numbers(edge) + Numbers(shift)).rounded());
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const Nine s(rows, at + 4);
        const IntegerVector largest = s.largest();
        store(joined(drawn<0>(s, largest), drawn<8>(s, largest), drawn<16>(s, largest), s.centre),
              to + at + 4);
    }
};

std::size_t Outline(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double shift) {
    return forVectors(from.above, count, OutlineWork{from, to, k, shift});
}

struct TextureWork {
    std::uint8_t* row;
    const std::uint8_t* texture;

    /// (c t + 128 (t - 128)) / 128, halves to the even number.
    static HWY_INLINE IntegerVector laid(IntegerVector c, IntegerVector t) {
        const Integers d;
        const IntegerVector n = hn::Add(hn::Mul(c, t), hn::ShiftLeft<7>(hn::Sub(t, hn::Set(d, 128))));
        const IntegerVector isOdd = hn::And(hn::ShiftRight<7>(n), hn::Set(d, 1));
        return limited(hn::ShiftRight<7>(hn::Add(hn::Add(n, hn::Set(d, 63)), isOdd)));
    }
    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(row + at);
        const IntegerVector t = channel<0>(load(texture + at));
        store(joined(laid(channel<0>(pixels), t), laid(channel<8>(pixels), t), laid(channel<16>(pixels), t),
                     pixels),
              row + at);
    }
};

std::size_t Texture(std::uint8_t* row, std::size_t count, const std::uint8_t* texture) {
    return forVectors(row, count, TextureWork{row, texture});
}

struct BySumWork {
    std::uint8_t* row;
    const std::uint32_t* table;

    HWY_INLINE void operator()(std::size_t at) const {
        const IntegerVector pixels = load(row + at);
        const auto* const entries = reinterpret_cast<const std::int32_t*>(table);
        const IntegerVector colours = hn::GatherIndex(Integers(), entries, sumOfChannels(pixels));
        store(hn::Or(colours, hn::AndNot(hn::Set(Integers(), 0x00FFFFFF), pixels)), row + at);
    }
};

std::size_t BySum(std::uint8_t* row, std::size_t count, const std::uint32_t* table) {
    return forVectors(row, count, BySumWork{row, table});
}

#endif

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTORS(Scale);
MOBREL_VECTORS(Saturation);
MOBREL_VECTORS(Emboss);
MOBREL_VECTORS(Relief);
MOBREL_VECTORS(Outline);
MOBREL_VECTORS(Texture);
MOBREL_VECTORS(BySum);

std::size_t scaledPixels(std::uint8_t* row, std::size_t count, double f) {
    return MOBREL_BEST(Scale)(row, count, f);
}

std::size_t saturatedPixels(std::uint8_t* row, std::size_t count, double f) {
    return MOBREL_BEST(Saturation)(row, count, f);
}

std::size_t embossedPixels(const std::uint8_t* from, const std::uint8_t* neighbours, std::uint8_t* to,
                           std::size_t count, double f) {
    return MOBREL_BEST(Emboss)(from, neighbours, to, count, f);
}

std::size_t relievedPixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double inverse) {
    return MOBREL_BEST(Relief)(from, to, count, k, inverse);
}

std::size_t outlinedPixels(const Rows3& from, std::uint8_t* to, std::size_t count, double k, double shift) {
    return MOBREL_BEST(Outline)(from, to, count, k, shift);
}

std::size_t texturizedPixels(std::uint8_t* row, std::size_t count, const std::uint8_t* texture) {
    return MOBREL_BEST(Texture)(row, count, texture);
}

std::size_t pixelsBySum(std::uint8_t* row, std::size_t count, const std::uint32_t* table) {
    return MOBREL_BEST(BySum)(row, count, table);
}

}  // namespace mobrel::kernels

#endif  // HWY_ONCE
