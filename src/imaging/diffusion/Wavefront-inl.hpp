// SPDX-License-Identifier: MIT
// What the wavefronts of error diffusion are made of. Read once for each set of instructions, hence no
// pragma.
#if defined(MOBREL_WAVEFRONT_INL_HPP) == defined(HWY_TARGET_TOGGLE)
#ifdef MOBREL_WAVEFRONT_INL_HPP
#undef MOBREL_WAVEFRONT_INL_HPP
#else
#define MOBREL_WAVEFRONT_INL_HPP
#endif

#include <hwy/highway.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "imaging/GreyLanes.hpp"
#include "imaging/diffusion/ErrorDiffusion.hpp"
#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel {
namespace HWY_NAMESPACE {

using wavefront::kBlock;
using wavefront::kLag;
using wavefront::kMostRows;

using Integers = hn::RebindToSigned<Pixels>;

constexpr int kTileSide = 4;
static_assert(kTileSide == kLag, "the tiles of a row lie as far behind as its pixels do");
using TilePixels = hn::FixedTag<std::uint32_t, kTileSide>;
using TileIndices = hn::Rebind<std::uint8_t, TilePixels>;
using TileVector = hn::Vec<TilePixels>;
namespace lanes = kernels::HWY_NAMESPACE;

/// The slots of kBlock steps through a band. Pixels come and go in tiles of four rows and four steps where
/// all of these are within the picture, else one by one.
class Block {
 public:
    HWY_INLINE explicit Block(RowBand& band) : m_band(band) {}

    /// Row j of each step, kMostRows to a step.
    HWY_INLINE std::uint32_t* slots() { return m_slots; }

    /// Brings the pixels of kBlock steps from `step`, a multiple of it, to the slots. What is beside the
    /// picture is undefined.
    HWY_NOINLINE void load(int step) {
        for (int row = 0; row < m_band.rows(); row += kTileSide) {
            const Steps tiles = tiled(row, step);
            if (tiles.from < tiles.to) loadTiles(row, step, tiles);
            for (int j = row; j < std::min(row + kTileSide, m_band.rows()); ++j) {
                loadPixels(j, step, {0, tiles.from});
                loadPixels(j, step, {tiles.to, kBlock});
            }
        }
    }

    /// Takes the pixels of these steps from the slots, as colours with their indices above.
    HWY_NOINLINE void store(int step) {
        for (int row = 0; row < m_band.rows(); row += kTileSide) {
            const Steps tiles = tiled(row, step);
            if (tiles.from < tiles.to) storeTiles(row, step, tiles);
            for (int j = row; j < std::min(row + kTileSide, m_band.rows()); ++j) {
                if (m_band.paintsByte3()) setByte3(j, step, tiles);
                storePixels(j, step, {0, tiles.from});
                storePixels(j, step, {tiles.to, kBlock});
            }
        }
    }

 private:
    /// A range of the block's steps.
    struct Steps {
        int from;
        int to;
    };
    static int column(int row, int step) { return step - kLag * (row + 1); }
    std::uint32_t* slot(int row, int step) { return m_slots + std::ptrdiff_t{step} * kMostRows + row; }
    /// From a row's pixel to that of the next row in the same step.
    std::ptrdiff_t pitch() const { return std::ptrdiff_t{m_band.width()} - kLag; }

    /// The steps in which all of four rows are at whole tiles within the picture.
    Steps tiled(int row, int step) const {
        if (row + kTileSide > m_band.rows()) return {0, 0};
        const int from = std::max(0, -column(row + kTileSide - 1, step));
        const int room = m_band.width() - column(row, step);
        return {from, std::max(from, std::min(room / kTileSide * kTileSide, kBlock))};
    }
    /// Those of a range in which the row is within the picture.
    Steps within(int row, int step, Steps steps) const {
        return {std::max(steps.from, -column(row, step)),
                std::min(steps.to, m_band.width() - column(row, step))};
    }

    void loadTiles(int row, int step, Steps tiles) {
        const TilePixels d;
        const std::uint8_t* pixels = m_band.pixel(row, column(row, step + tiles.from));
        const std::ptrdiff_t bytes = pitch() * 4;
        std::uint32_t* to = slot(row, tiles.from);
        for (int k = tiles.from; k < tiles.to; k += kTileSide, pixels += kTileSide * 4) {
            TileVector tile[] = {lanes::load(d, pixels), lanes::load(d, pixels + bytes),
                                 lanes::load(d, pixels + 2 * bytes), lanes::load(d, pixels + 3 * bytes)};
            lanes::transposeBlocks(tile);
            for (const TileVector& column : tile) {
                hn::Store(column, d, to);
                to += kMostRows;
            }
        }
    }
    void storeTiles(int row, int step, Steps tiles) {
        const TilePixels d;
        const TileVector colours = hn::Set(d, 0x00FFFFFF);
        const TileVector kept = hn::Set(d, m_band.paint().kept);
        const int x = column(row, step + tiles.from);
        std::uint8_t* pixels = m_band.pixel(row, x);
        std::uint8_t* indices = m_band.indices(row) + x;
        const std::ptrdiff_t indexPitch = pitch();
        const std::uint32_t* from = slot(row, tiles.from);
        for (int k = tiles.from; k < tiles.to; k += kTileSide, from += kTileSide * kMostRows) {
            TileVector tile[] = {hn::Load(d, from), hn::Load(d, from + kMostRows),
                                 hn::Load(d, from + 2 * kMostRows), hn::Load(d, from + 3 * kMostRows)};
            lanes::transposeBlocks(tile);
            std::uint8_t* linePixels = pixels;
            std::uint8_t* lineIndices = indices;
            for (const TileVector& line : tile) {
                const TileVector painted =
                    hn::Or(hn::And(line, colours), hn::And(lanes::load(d, linePixels), kept));
                lanes::store(painted, d, linePixels);
                hn::StoreU(hn::U8FromU32(hn::ShiftRight<24>(line)), TileIndices(), lineIndices);
                linePixels += indexPitch * 4;
                lineIndices += indexPitch;
            }
            pixels += kTileSide * 4;
            indices += kTileSide;
        }
    }
    void loadPixels(int row, int step, Steps steps) {
        const auto [from, to] = within(row, step, steps);
        for (int k = from; k < to; ++k)
            std::memcpy(slot(row, k), m_band.pixel(row, column(row, step + k)), 4);
    }
    void storePixels(int row, int step, Steps steps) {
        const auto [from, to] = within(row, step, steps);
        for (int k = from; k < to; ++k) {
            m_band.set(row, column(row, step + k), static_cast<std::uint8_t>(*slot(row, k) >> 24));
        }
    }
    /// Tiles bring three bytes of a colour.
    void setByte3(int row, int step, Steps tiles) {
        for (int x = column(row, step + tiles.from); x < column(row, step + tiles.to); ++x) {
            m_band.pixel(row, x)[3] =
                static_cast<std::uint8_t>(m_band.paint().colours[m_band.indices(row)[x]] >> 24);
        }
    }

    RowBand& m_band;
    alignas(64) std::uint32_t m_slots[kBlock * kMostRows] = {};
};

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
    HWY_INLINE explicit Columns(const RowBand& band)
        : m_at(hn::Sub(hn::Zero(Pixels()), hn::Mul(hn::Iota(Pixels(), 1), hn::Set(Pixels(), kLag)))),
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
        const auto arriving = hn::Set(D(), slot[kLag * hn::Lanes(D())]);
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

/// Takes a front, which turns pixels to colours with their indices above, through the slots of a block, whose
/// first one is that of `step`.
template <class Front, typename Value>
class Passage {
 public:
    HWY_INLINE Passage(Front& front, Block& block, int step, CarriedErrors<Value>& errors)
        : m_front(front),
          m_at(block.slots()),
          m_first(errors.first.data() + step),
          m_second(errors.second.data() + step) {}

    HWY_INLINE void next() {
        hn::Store(m_front.step(hn::Load(Pixels(), m_at), m_first++, m_second++), Pixels(), m_at);
        m_at += kMostRows;
    }

 private:
    Front& m_front;
    std::uint32_t* m_at;
    Value* m_first;
    Value* m_second;
};

template <class Front, typename Value>
HWY_INLINE void passAlone(Front& front, Block& block, int step, CarriedErrors<Value>& errors) {
    block.load(step);
    Passage<Front, Value> passage(front, block, step, errors);
    for (int k = 0; k < kBlock; ++k) passage.next();
    block.store(step);
}

/// Takes wavefronts through one or two bands. The second one follows a block behind the first, so neither
/// waits for the other: the processor works on a step of each at the same time.
template <class Front, class Rule, typename Value>
HWY_INLINE void passBands(std::span<RowBand> bands, const Rule& rule, CarriedErrors<Value>& errors) {
    RowBand& leading = bands.front();
    Block leadingBlock(leading);
    Block trailingBlock(bands.back());
    Front first(leading, rule);
    Front second(bands.back(), rule);
    const int lastStep = (leading.width() + kLag * leading.rows() + wavefront::kTail - 1) / kBlock * kBlock;
    passAlone(first, leadingBlock, 0, errors);
    for (int step = kBlock; step <= lastStep; step += kBlock) {
        if (bands.size() == 1) {
            passAlone(first, leadingBlock, step, errors);
            continue;
        }
        leadingBlock.load(step);
        trailingBlock.load(step - kBlock);
        Passage<Front, Value> ahead(first, leadingBlock, step, errors);
        Passage<Front, Value> behind(second, trailingBlock, step - kBlock, errors);
        for (int k = 0; k < kBlock; ++k) {
            ahead.next();
            behind.next();
        }
        leadingBlock.store(step);
        trailingBlock.store(step - kBlock);
    }
    if (bands.size() > 1) passAlone(second, trailingBlock, lastStep, errors);
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel
HWY_AFTER_NAMESPACE();

#endif  // HWY_TARGET != HWY_SCALAR
#endif
