// SPDX-License-Identifier: MIT
// What the waves of error diffusion are made of. Read once for each set of instructions, hence no pragma.
#if defined(MOBREL_WAVE_LANES) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_WAVE_LANES
#undef MOBREL_WAVE_LANES
#else
#define MOBREL_WAVE_LANES
#endif

#include <hwy/highway.h>

#include <cstdint>
#include <span>

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

/// Takes a wave, which turns pixels to colours with their indices above, through a block from `step`.
template <class Wave, typename Value>
class Passage {
 public:
    HWY_INLINE Passage(Wave& wave, WaveBand& band, int step, Handover<Value>& errors)
        : m_wave(wave),
          m_at(band.block()),
          m_first(errors.first.data() + step),
          m_second(errors.second.data() + step) {}

    HWY_INLINE void next() {
        hn::Store(m_wave.step(hn::Load(Pixels(), m_at), m_first++, m_second++), Pixels(), m_at);
        m_at += WaveBand::kMostRows;
    }

 private:
    Wave& m_wave;
    std::uint32_t* m_at;
    Value* m_first;
    Value* m_second;
};

template <class Wave, typename Value>
HWY_INLINE void passAlone(Wave& wave, WaveBand& band, int step, Handover<Value>& errors) {
    band.load(step);
    Passage<Wave, Value> passage(wave, band, step, errors);
    for (int k = 0; k < WaveBand::kBlock; ++k) passage.next();
    band.store(step);
}

/// Goes through one or two bands. The second one follows a block behind the first, which it waits for no
/// longer: while the one's step goes its way through the processor, the other's does too.
template <class Wave, class Rule, typename Value>
HWY_INLINE void goThrough(std::span<WaveBand> bands, const Rule& rule, Handover<Value>& errors) {
    constexpr int kBlock = WaveBand::kBlock;
    WaveBand& leading = bands.front();
    WaveBand& trailing = bands.back();
    Wave first(leading, rule);
    Wave second(trailing, rule);
    const int blocks = leading.blocks();
    passAlone(first, leading, 0, errors);
    for (int step = kBlock; step < blocks * kBlock; step += kBlock) {
        if (bands.size() == 1) {
            passAlone(first, leading, step, errors);
            continue;
        }
        leading.load(step);
        trailing.load(step - kBlock);
        Passage<Wave, Value> ahead(first, leading, step, errors);
        Passage<Wave, Value> behind(second, trailing, step - kBlock, errors);
        for (int k = 0; k < kBlock; ++k) {
            ahead.next();
            behind.next();
        }
        leading.store(step);
        trailing.store(step - kBlock);
    }
    if (bands.size() > 1) passAlone(second, trailing, (blocks - 1) * kBlock, errors);
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif  // HWY_TARGET != HWY_SCALAR
#endif
