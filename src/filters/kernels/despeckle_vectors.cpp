// SPDX-License-Identifier: MIT
#include "filters/kernels/despeckle_vectors.hpp"

#include <algorithm>
#include <cstring>

#define HWY_TARGET_INCLUDE "filters/kernels/despeckle_vectors.cpp"
#include <hwy/foreach_target.h>  // IWYU pragma: keep
#include <hwy/highway.h>

#include "platform/drawing/pixel_lanes-inl.hpp"

#if HWY_TARGET != HWY_SCALAR

HWY_BEFORE_NAMESPACE();
namespace mobrel::kernels {
namespace HWY_NAMESPACE {

template <class V>
HWY_INLINE V less(V x) {
    return hn::SaturatedSub(x, hn::Set(hn::DFromV<V>(), 1));
}
template <class V>
HWY_INLINE V more(V x) {
    return hn::SaturatedAdd(x, hn::Set(hn::DFromV<V>(), 1));
}

/// One less where p lies above the limit.
template <class V>
HWY_INLINE V down(V p, V limit) {
    return hn::Max(hn::Min(p, limit), less(p));
}
/// One more where p lies below the limit.
template <class V>
HWY_INLINE V up(V p, V limit) {
    return hn::Min(hn::Max(p, limit), more(p));
}

/// A limit that saturates is one that no byte passes, as the neighbour it comes from demands.
struct Despeckle {
    template <class V>
    HWY_INLINE V operator()(V p, V a, V b) const {
        p = down(down(p, more(a)), more(b));
        return up(up(p, less(a)), less(b));
    }
};

struct DespeckleMore {
    template <class V>
    HWY_INLINE V operator()(V p, V a, V b) const {
        p = down(down(p, more(a)), hn::Max(a, less(b)));
        p = down(down(p, hn::Max(b, less(a))), more(b));
        p = up(up(p, less(a)), hn::Min(a, more(b)));
        return up(up(p, hn::Min(b, more(a))), less(b));
    }
};

/// Moves pixels from `done` on while whole vectors are left; returns how many are done then.
template <class D, class Rule>
HWY_INLINE std::size_t moveVectors(D d, std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                                   std::size_t done, std::size_t count, Rule rule) {
    const std::size_t step = hn::Lanes(d) / 4;
    for (; done + step <= count; done += step) {
        loadAhead(b + done * 4);
        const auto p = hn::LoadU(d, row + done * 4);
        const auto moved = rule(p, hn::LoadU(d, a + done * 4), hn::LoadU(d, b + done * 4));
        hn::StoreU(withColours(moved, p), d, row + done * 4);
    }
    return done;
}

template <class Rule>
HWY_INLINE std::size_t moveRow(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                               std::size_t count, Rule rule) {
    const std::size_t done = moveVectors(Bytes(), row, a, b, 0, count, rule);
    return moveVectors(hn::CappedTag<std::uint8_t, 16>(), row, a, b, done, count, rule);
}

/// Four pixels of every fourth row, the rows in the order of the blocks.
template <class D>
HWY_INLINE hn::Vec<D> loadBlocks(D d, std::uint8_t* const* rows, std::size_t at) {
    if constexpr (hn::MaxLanes(d) == 4) {
        return load(d, rows[0] + at);
    } else {
        const hn::Half<D> half;
        return hn::Combine(d, loadBlocks(half, rows + hn::MaxLanes(half), at), loadBlocks(half, rows, at));
    }
}
template <class D>
HWY_INLINE void storeBlocks(D d, hn::Vec<D> pixels, std::uint8_t* const* rows, std::size_t at) {
    if constexpr (hn::MaxLanes(d) == 4) {
        store(pixels, d, rows[0] + at);
    } else {
        const hn::Half<D> half;
        storeBlocks(half, hn::LowerHalf(half, pixels), rows, at);
        storeBlocks(half, hn::UpperHalf(half, pixels), rows + hn::MaxLanes(half), at);
    }
}

constexpr std::size_t kRows = hn::MaxLanes(Pixels());

/// A row a lane, all at the same column. Past the last row of the block it stands for the lanes left over,
/// which then write the same.
class RowGroup {
 public:
    HWY_INLINE RowGroup(const PixelBlock& block, std::size_t first) {
        HWY_ALIGN std::uint32_t left[kRows];
        HWY_ALIGN std::uint32_t at[kRows];
        for (std::size_t i = 0; i < kRows; ++i) {
            m_rows[i] = block.row(std::min(first + i, block.rows - 1));
            std::memcpy(&left[i], m_rows[i] - 4, 4);
            std::memcpy(&at[i], m_rows[i], 4);
        }
        m_left = hn::BitCast(Bytes(), hn::Load(Pixels(), left));
        m_at = hn::BitCast(Bytes(), hn::Load(Pixels(), at));
    }

    /// Moves the next four pixels of each row, which start at a column. What has moved is the left neighbour
    /// of the next.
    template <class Rule>
    HWY_INLINE void moveFour(std::size_t column, Rule rule) {
        PixelVector columns[4];
        for (std::size_t i = 0; i < 4; ++i) columns[i] = loadBlocks(Pixels(), m_rows + i, column * 4 + 4);
        transposeBlocks(columns);
        for (PixelVector& pixels : columns) {
            const ByteVector right = hn::BitCast(Bytes(), pixels);
            m_left = withColours(rule(m_at, m_left, right), m_at);
            pixels = hn::BitCast(Pixels(), m_left);
            m_at = right;
        }
        transposeBlocks(columns);
        for (std::size_t i = 0; i < 4; ++i) storeBlocks(Pixels(), columns[i], m_rows + i, column * 4);
    }

 private:
    std::uint8_t* m_rows[kRows];
    ByteVector m_left;
    ByteVector m_at;
};

/// Two groups in turn: neither waits for the other.
template <class Rule>
HWY_INLINE std::size_t moveColumns(const PixelBlock& block, Rule rule) {
    const std::size_t end = block.columns & ~std::size_t{3};
    if (end == 0) return 0;
    std::size_t row = 0;
    for (; row + kRows < block.rows; row += 2 * kRows) {
        RowGroup first(block, row);
        RowGroup second(block, row + kRows);
        for (std::size_t column = 0; column < end; column += 4) {
            first.moveFour(column, rule);
            second.moveFour(column, rule);
        }
    }
    if (row < block.rows) {
        RowGroup last(block, row);
        for (std::size_t column = 0; column < end; column += 4) last.moveFour(column, rule);
    }
    return end;
}

std::size_t despecklePixels(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                            std::size_t count) {
    return moveRow(row, a, b, count, Despeckle());
}
std::size_t despeckleMorePixels(std::uint8_t* row, const std::uint8_t* a, const std::uint8_t* b,
                                std::size_t count) {
    return moveRow(row, a, b, count, DespeckleMore());
}
std::size_t despeckleColumns(const PixelBlock& block) {
    return moveColumns(block, Despeckle());
}
std::size_t despeckleMoreColumns(const PixelBlock& block) {
    return moveColumns(block, DespeckleMore());
}

}  // namespace HWY_NAMESPACE
}  // namespace mobrel::kernels
HWY_AFTER_NAMESPACE();

#endif

#if HWY_ONCE

namespace mobrel::kernels {

MOBREL_VECTOR_KERNEL(despecklePixels);
MOBREL_VECTOR_KERNEL(despeckleMorePixels);
MOBREL_VECTOR_KERNEL(despeckleColumns);
MOBREL_VECTOR_KERNEL(despeckleMoreColumns);

}  // namespace mobrel::kernels

#endif
