// SPDX-License-Identifier: MIT
// What the waves of error diffusion are made of. Read once for each set of instructions, hence no pragma.
#if defined(MOBREL_WAVE_LANES) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_WAVE_LANES
#undef MOBREL_WAVE_LANES
#else
#define MOBREL_WAVE_LANES
#endif

#include <hwy/highway.h>

#include <algorithm>
#include <cstdint>

#include "imaging/DiffusionWave.hpp"
#include "imaging/GreyLanes.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

using Integers = hn::RebindToSigned<Pixels>;

/// Gives back what it was given kSteps steps ago; zeros at first.
template <class D, int kSteps>
class Delay {
 public:
    HWY_INLINE Delay() {
        for (auto& value : m_values) value = hn::Zero(D());
    }
    HWY_INLINE hn::Vec<D> pass(hn::Vec<D> value) {
        const hn::Vec<D> oldest = m_values[0];
        for (int i = 0; i + 1 < kSteps; ++i) m_values[i] = m_values[i + 1];
        m_values[kSteps - 1] = value;
        return oldest;
    }

 private:
    hn::Vec<D> m_values[kSteps];
};

/// The columns that the rows are at. One left of the picture is a number beyond every width.
class Columns {
 public:
    HWY_INLINE explicit Columns(const WaveBand& band)
        : m_at(
              hn::Sub(hn::Zero(Pixels()), hn::Mul(hn::Iota(Pixels(), 1), hn::Set(Pixels(), WaveBand::kLag)))),
          m_widths(hn::Set(Pixels(), static_cast<std::uint32_t>(band.width()))) {
        const auto used = hn::FirstN(Pixels(), static_cast<std::size_t>(band.rows()));
        m_widths = hn::IfThenElseZero(used, m_widths);
    }
    HWY_INLINE void next() { m_at = hn::Add(m_at, hn::Set(Pixels(), 1)); }
    HWY_INLINE hn::Mask<Pixels> areInside() const { return hn::Lt(m_at, m_widths); }
    HWY_INLINE hn::Mask<Pixels> areAt(PixelVector column) const { return hn::Eq(m_at, column); }

 private:
    PixelVector m_at;
    PixelVector m_widths;
};

/// Moves values one row on: what the band before handed over comes to the first row, and what the last row
/// has is handed on.
template <class D>
class NextRow {
 public:
    HWY_INLINE NextRow() : m_turn(hn::IndicesFromVec(D(), turn())), m_first(hn::FirstN(D(), 1)) {}

    HWY_INLINE hn::Vec<D> moved(hn::Vec<D> values, hn::TFromD<D>* slot) const {
        const hn::Vec<D> turned = hn::TableLookupLanes(values, m_turn);
        const auto arriving = hn::Set(D(), slot[WaveBand::kLag * hn::Lanes(D())]);
        *slot = hn::GetLane(turned);
        return hn::IfThenElse(m_first, arriving, turned);
    }

 private:
    static HWY_INLINE hn::Vec<Integers> turn() {
        const auto last = hn::Set(Integers(), static_cast<std::int32_t>(hn::Lanes(D())) - 1);
        return hn::And(hn::Add(hn::Iota(Integers(), 0), last), last);
    }

    decltype(hn::IndicesFromVec(D(), turn())) m_turn;
    hn::Mask<D> m_first;
};

/// Goes through a band, block by block; the wave turns pixels to their indices in the highest bytes.
template <class Wave, typename Value>
HWY_INLINE void goThrough(WaveBand& band, Wave wave, Handover<Value>& errors) {
    const Pixels d;
    for (int first = 0; first < band.steps(); first += WaveBand::kBlock) {
        band.load(first);
        std::uint32_t* at = band.block();
        const int end = std::min(first + WaveBand::kBlock, band.steps());
        for (int step = first; step < end; ++step, at += WaveBand::kMostRows) {
            hn::Store(wave.step(hn::Load(d, at), errors.first.data() + step, errors.second.data() + step), d,
                      at);
        }
        band.store(first);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif  // HWY_TARGET != HWY_SCALAR
#endif
