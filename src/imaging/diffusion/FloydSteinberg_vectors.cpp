// SPDX-License-Identifier: MIT
#include "imaging/diffusion/FloydSteinberg.hpp"

#include "imaging/WeightedGrey.hpp"

#define HWY_TARGET_INCLUDE "imaging/diffusion/FloydSteinberg_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "imaging/diffusion/Wavefront-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

using Bytes = hn::Repartition<std::uint8_t, Pixels>;
using SignedBytes = hn::RebindToSigned<Bytes>;
using ByteVector = hn::Vec<Bytes>;
using ShareVector = hn::Vec<SignedBytes>;

int wavefrontRows() {
    return static_cast<int>(hn::Lanes(Pixels()));
}

HWY_INLINE ByteVector bytesOf(PixelVector pixels) {
    return hn::BitCast(Bytes(), pixels);
}
HWY_INLINE PixelVector pixelsOf(ByteVector bytes) {
    return hn::BitCast(Pixels(), bytes);
}

/// The errors of the channels, split by their signs.
struct Errors {
    PixelVector positive;
    PixelVector negative;

    HWY_INLINE Errors(PixelVector wanted, PixelVector given)
        : positive(pixelsOf(hn::SaturatedSub(bytesOf(wanted), bytesOf(given)))),
          negative(pixelsOf(hn::SaturatedSub(bytesOf(given), bytesOf(wanted)))) {}

    /// All bits of the channels where their errors sum to more than 3.
    HWY_INLINE PixelVector spreading() const {
        constexpr std::uint8_t kMostKept = 3;
        const Integers d;
        const PixelVector capped =
            pixelsOf(hn::Min(bytesOf(hn::Or(positive, negative)), hn::Set(Bytes(), kMostKept + 1)));
        const PixelVector sum =
            hn::Add(hn::Add(capped, hn::ShiftRight<8>(capped)), hn::ShiftRight<16>(capped));
        const auto isSpread =
            hn::Gt(hn::BitCast(d, hn::And(sum, hn::Set(Pixels(), 0xFF))), hn::Set(d, kMostKept));
        return hn::BitCast(Pixels(), hn::IfThenElseZero(isSpread, hn::Set(d, 0x00FFFFFF)));
    }
};

/// kWeight x n div kDivisor for each nibble n.
template <int kWeight, int kDivisor>
struct NibbleTable {
    alignas(16) std::uint8_t shares[16];

    constexpr NibbleTable() : shares() {
        for (int n = 0; n < 16; ++n) shares[n] = static_cast<std::uint8_t>(kWeight * n / kDivisor);
    }
    HWY_INLINE ByteVector of(ByteVector nibbles) const {
        return hn::TableLookupBytes(hn::LoadDup128(Bytes(), shares), nibbles);
    }
};

/// Shares of errors; those of an error and of its opposite differ in sign only.
class Shares {
 public:
    HWY_INLINE explicit Shares(const Errors& errors)
        : m_positive(errors.positive), m_negative(errors.negative) {}

    /// Trunc(kWeight x error / 16).
    template <int kWeight>
    HWY_INLINE ShareVector of() const {
        return hn::BitCast(SignedBytes(), hn::Sub(m_positive.share<kWeight>(), m_negative.share<kWeight>()));
    }

 private:
    struct Nibbles {
        ByteVector high;
        ByteVector low;

        HWY_INLINE explicit Nibbles(PixelVector values)
            : high(bytesOf(hn::And(hn::ShiftRight<4>(values), hn::Set(Pixels(), 0x0F0F0F0F)))),
              low(bytesOf(hn::And(values, hn::Set(Pixels(), 0x0F0F0F0F)))) {}

        template <int kWeight>
        HWY_INLINE ByteVector share() const {
            static constexpr NibbleTable<kWeight, 1> kWhole;
            static constexpr NibbleTable<kWeight, 16> kSixteenths;
            return hn::Add(kWhole.of(high), kSixteenths.of(low));
        }
    };

    Nibbles m_positive;
    Nibbles m_negative;
};

/// A pixel as its errors are counted from, and what it becomes: a colour with its index above it.
struct Reduced {
    PixelVector seen;
    PixelVector given;
};

/// Colours by the place of their nearest levels in the cube.
struct ColourReduction {
    const std::uint32_t* table;

    HWY_INLINE Reduced reduced(PixelVector pixels) const {
        const PixelVector outer = levels(hn::And(pixels, hn::Set(Pixels(), 0x00FF00FF)));
        const PixelVector green = levels(channel(pixels, 8));
        const PixelVector blue = hn::And(hn::ShiftLeft<8>(outer), hn::Set(Pixels(), 0xF00));
        const PixelVector place = hn::Or(hn::Or(blue, hn::ShiftRight<16>(outer)), hn::ShiftLeft<4>(green));
        return {pixels, hn::GatherIndex(Pixels(), table, hn::BitCast(Integers(), place))};
    }

 private:
    /// Round(v / 17) in each half of a lane.
    static HWY_INLINE PixelVector levels(PixelVector values) {
        constexpr GreyLevels kLevels(4);
        static_assert(kLevels.offset % kLevels.factor == 0);
        const hn::Repartition<std::uint16_t, Pixels> d;
        const auto shifted = hn::Add(hn::BitCast(d, values), hn::Set(d, kLevels.offset / kLevels.factor));
        return hn::BitCast(Pixels(), hn::MulHigh(shifted, hn::Set(d, kLevels.factor)));
    }
};

/// Pixels as their weighted greys.
struct GreyReduction {
    GreyLevels levels;

    HWY_INLINE Reduced reduced(PixelVector pixels) const {
        const Pixels d;
        const WeightedGreys weighted(pixels);
        PixelVector greys = weighted.greys;
        if (HWY_UNLIKELY(!hn::AllFalse(d, weighted.isTie))) greys = plainly(pixels);
        const PixelVector index =
            hn::ShiftRight<16>(hn::Add(hn::Mul(greys, hn::Set(d, levels.factor)), hn::Set(d, levels.offset)));
        return {hn::Mul(greys, hn::Set(d, 0x010101)), hn::Mul(index, hn::Set(d, levels.entry))};
    }

 private:
    static HWY_NOINLINE PixelVector plainly(PixelVector pixels) {
        const Pixels d;
        HWY_ALIGN std::uint32_t lanes[hn::MaxLanes(d)];
        hn::Store(pixels, d, lanes);
        for (std::uint32_t& lane : lanes) lane = weightedGrey(reinterpret_cast<std::uint8_t*>(&lane));
        return hn::Load(d, lanes);
    }
};

/// A share is added to a byte with its highest bit turned over, so that the limits of signed bytes are those
/// of the pixel's.
template <class Reduction>
class FloydSteinbergFront {
 public:
    HWY_INLINE FloydSteinbergFront(const RowBand& band, const Reduction& reduction)
        : m_columns(band),
          m_reduction(reduction),
          m_seven(hn::Zero(SignedBytes())),
          m_three(m_seven),
          m_five(m_seven),
          m_one(m_seven) {}

    HWY_INLINE PixelVector step(PixelVector pixels, std::uint32_t* positiveSlot,
                                std::uint32_t* negativeSlot) {
        const Reduced reduced = m_reduction.reduced(reached(pixels));
        Errors errors(reduced.seen, reduced.given);
        const PixelVector spreading = hn::IfThenElseZero(m_columns.areInside(), errors.spreading());
        m_seven = hn::And(Shares(errors).template of<7>(), hn::BitCast(SignedBytes(), spreading));

        errors.positive = m_nextRow.moved(hn::And(errors.positive, spreading), positiveSlot);
        errors.negative = m_nextRow.moved(hn::And(errors.negative, spreading), negativeSlot);
        spreadAbove(Shares(errors));
        m_columns.next();
        return reduced.given;
    }

 private:
    /// The pixels with the shares of the row before, from its left to its right, and of their left.
    HWY_INLINE PixelVector reached(PixelVector pixels) const {
        const PixelVector turned = hn::Set(Pixels(), 0x80808080);
        ShareVector value = hn::BitCast(SignedBytes(), hn::Xor(pixels, turned));
        value = hn::SaturatedAdd(value, m_one);
        value = hn::SaturatedAdd(value, m_five);
        value = hn::SaturatedAdd(value, m_three);
        value = hn::SaturatedAdd(value, m_seven);
        return hn::Xor(hn::BitCast(Pixels(), value), turned);
    }
    HWY_INLINE void spreadAbove(const Shares& shares) {
        m_three = m_threeLater.pass(shares.of<3>());
        m_five = m_fiveLater.pass(shares.of<5>());
        m_one = m_oneLater.pass(shares.of<1>());
    }

    Columns m_columns;
    Reduction m_reduction;
    NextRow<Pixels> m_nextRow;
    ShareVector m_seven;
    ShareVector m_three;
    ShareVector m_five;
    ShareVector m_one;
    Delay<SignedBytes, kLag - 2> m_threeLater;
    Delay<SignedBytes, kLag - 1> m_fiveLater;
    Delay<SignedBytes, kLag> m_oneLater;
};

void diffuseColours(std::span<RowBand> bands, const std::uint32_t* table,
                    CarriedErrors<std::uint32_t>& errors) {
    passBands<FloydSteinbergFront<ColourReduction> >(bands, ColourReduction{table}, errors);
}

void diffuseGreys(std::span<RowBand> bands, const GreyLevels& levels, CarriedErrors<std::uint32_t>& errors) {
    passBands<FloydSteinbergFront<GreyReduction> >(bands, GreyReduction{levels}, errors);
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTOR_KERNEL(wavefrontRows);
MOBREL_VECTOR_KERNEL(diffuseColours);
MOBREL_VECTOR_KERNEL(diffuseGreys);

}  // namespace mobrel

#endif
