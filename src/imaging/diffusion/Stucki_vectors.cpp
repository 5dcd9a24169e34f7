// SPDX-License-Identifier: MIT
#include "imaging/diffusion/Stucki.hpp"

#include <algorithm>

#define HWY_TARGET_INCLUDE "imaging/diffusion/Stucki_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "imaging/diffusion/Wavefront-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

using Floats = hn::RebindToFloat<Pixels>;
using FloatVector = hn::Vec<Floats>;

/// The factor lies so little above the fraction that no truncated product differs from the quotient.
constexpr float kFortySecond = 0.02380954F;

constexpr bool isFortySecond() {
    for (int n = -8 * 255; n <= 8 * 255; ++n) {
        if (static_cast<int>(static_cast<float>(n) * kFortySecond) != n / 42) return false;
    }
    return true;
}
static_assert(isFortySecond());

/// Trunc(weight x error / 42).
template <int kWeight>
HWY_INLINE FloatVector share(FloatVector error) {
    return hn::Trunc(hn::Mul(error, hn::Set(Floats(), kWeight * kFortySecond)));
}

/// The shares that one row's errors give to another: of a pixel `a` to the column two to its left, `b` to the
/// one beside it, `c` to its own, and again `b` and `a` to those on its right.
class Spread {
 public:
    HWY_INLINE Spread() : m_besideLeft(hn::Zero(Floats())), m_own(m_besideLeft), m_farBefore(m_besideLeft) {}

    /// The sum for the column two left of the present one. kept: the last column gets nothing from its left.
    HWY_INLINE FloatVector sum(FloatVector a, FloatVector b, FloatVector c, hn::Mask<Floats> isLast) {
        const FloatVector fromRight = hn::Add(a, m_besideLeft);
        const FloatVector fromLeft = m_fromLeft.pass(hn::Add(b, m_farBefore));
        m_besideLeft = hn::Add(b, m_own);
        m_own = c;
        m_farBefore = a;
        return hn::Add(fromRight, hn::IfThenZeroElse(isLast, fromLeft));
    }

 private:
    FloatVector m_besideLeft;
    FloatVector m_own;
    FloatVector m_farBefore;
    Delay<Floats, 3> m_fromLeft;
};

struct StuckiRule {
    int threshold;
    std::int32_t weight;
};

/// Collects the shares that come to each pixel. All are whole numbers, so the order of their sums does not
/// count.
class StuckiFront {
 public:
    HWY_INLINE StuckiFront(const RowBand& band, const StuckiRule& rule)
        : m_columns(band),
          m_last(hn::Set(Pixels(), static_cast<std::uint32_t>(band.width() - 1))),
          m_behind(hn::Set(Pixels(), static_cast<std::uint32_t>(band.width() + 1))),
          m_taking(hn::FirstN(Floats(), static_cast<std::size_t>(
                                            std::min(band.rows(), band.height() - 1 - band.firstRow())))),
          m_threshold(hn::Set(Floats(), static_cast<float>(rule.threshold))),
          m_weight(hn::Set(Floats(), static_cast<float>(rule.weight))),
          m_fromRows(hn::Zero(Floats())),
          m_fromLeft(m_fromRows),
          m_fourBefore(m_fromRows) {}

    HWY_INLINE PixelVector step(PixelVector pixels, float* nextSlot, float* overnextSlot) {
        const Floats d;
        const auto isLast = hn::RebindMask(d, m_columns.areAt(m_last));
        const FloatVector value =
            valueOf(greys(pixels), hn::Add(m_fromRows, hn::IfThenZeroElse(isLast, m_fromLeft)));
        const auto isWhite = hn::Ge(value, m_threshold);
        spread(hn::Sub(value, hn::IfThenElseZero(isWhite, hn::Set(d, 255.0F))), nextSlot, overnextSlot);
        m_columns.next();
        return hn::IfThenElseZero(hn::RebindMask(Pixels(), isWhite), hn::Set(Pixels(), 0x01FFFFFF));
    }

 private:
    /// Beside the picture, a value that no error brings below white: it has no error of its own.
    HWY_INLINE FloatVector greys(PixelVector pixels) const {
        const PixelVector within =
            hn::IfThenElse(m_columns.areInside(), plainGreys(pixels), hn::Set(Pixels(), 10000));
        return hn::ConvertTo(Floats(), hn::BitCast(Integers(), within));
    }
    /// Division rounds no quotient up to a whole number, since the dividend is below 2^12.
    HWY_INLINE FloatVector valueOf(FloatVector grey, FloatVector stored) const {
        const Floats d;
        const FloatVector taken = hn::Trunc(hn::Div(hn::Mul(stored, hn::Set(d, 10.0F)), m_weight));
        return hn::Min(hn::Max(hn::Add(grey, taken), hn::Zero(d)), hn::Set(d, 255.0F));
    }
    HWY_INLINE void spread(FloatVector error, float* nextSlot, float* overnextSlot) {
        const FloatVector eight = share<8>(error);
        const FloatVector four = share<4>(error);
        const FloatVector two = share<2>(error);
        const FloatVector one = share<1>(error);
        m_fromLeft = hn::Add(eight, m_fourBefore);
        m_fourBefore = four;

        const auto isLast = hn::RebindMask(Floats(), m_columns.areAt(m_behind));
        const FloatVector overnext = m_overnext.sum(one, two, four, isLast);
        const FloatVector fromTwo = m_rowLater.pass(m_nextRow.moved(overnext, overnextSlot));
        const FloatVector next = hn::Add(m_next.sum(two, four, eight, isLast), fromTwo);
        // kept: the last row gets nothing from the rows before it.
        m_fromRows = hn::IfThenElseZero(m_taking, m_stepLater.pass(m_nextRow.moved(next, nextSlot)));
    }

    Columns m_columns;
    PixelVector m_last;
    PixelVector m_behind;
    hn::Mask<Floats> m_taking;
    FloatVector m_threshold;
    FloatVector m_weight;
    NextRow<Floats> m_nextRow;
    FloatVector m_fromRows;
    FloatVector m_fromLeft;
    FloatVector m_fourBefore;
    Spread m_next;
    Spread m_overnext;
    Delay<Floats, kLag> m_rowLater;
    Delay<Floats, kLag - 3> m_stepLater;
};

void diffuseBlackAndWhite(std::span<RowBand> bands, int threshold, std::int32_t weight,
                          CarriedErrors<float>& errors) {
    passBands<StuckiFront>(bands, StuckiRule{threshold, weight}, errors);
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel {

MOBREL_VECTOR_KERNEL(diffuseBlackAndWhite);

}  // namespace mobrel

#endif
