// SPDX-License-Identifier: MIT
// What all filters share: the rows, the progress values, the end event.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "filters/kernels/forSteps.hpp"
#include "filters/kernels/neighbourhood.hpp"
#include "imaging/cDIB.hpp"
#include "platform/base/Event.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

/// Runs the passes of one filter over one surface. Rows count from the bottom line of the picture
/// upward, as they lie in memory.
class FilterFrame {
 public:
    FilterFrame(cDIB& dib, const Event<std::int32_t>& progress, const Event<>& progressEnd)
        : m_dib(dib), m_progress(progress), m_progressEnd(progressEnd) {}

    int width() const { return m_dib.Width(); }
    int height() const { return m_dib.Height(); }
    std::uint8_t* row(int y) const {
        return m_dib.DIBitsPtr() + std::ptrdiff_t{y} * m_dib.BytesPerScanLine();
    }
    std::size_t rowBytes() const { return static_cast<std::size_t>(m_dib.BytesPerScanLine()); }

    /// One pass: calls work(y) for the rows from first below end in steps, and raises Progress(y) after
    /// each.
    template <typename Work>
    void onePass(std::int32_t first, std::int32_t end, Work work, std::int32_t step = 1) const {
        kernels::forSteps(first, end - 1, step, [&](std::int32_t y) {
            work(y);
            m_progress.raise(y);
        });
    }

    /// One of several passes: after each row the shared progress moves by `share` of a row.
    template <typename Work>
    void sharedPass(float share, int first, int end, Work work) {
        for (int y = first; y < end; ++y) {
            work(y);
            advance(share);
        }
    }

    /// Adds to a float that is raised rounded, so the value climbs once over all passes.
    void advance(float share) {
        m_done += share;
        m_progress.raise(roundInt(m_done));
    }

    void finish() const { m_progressEnd.raise(); }

 private:
    cDIB& m_dib;
    const Event<std::int32_t>& m_progress;
    const Event<>& m_progressEnd;
    float m_done = 0;
};

/// Several passes over the same rows as one sweep, which goes up band by band: each pass stays one row
/// behind the pass before, until the last band, which they all end with.
class RowBands {
 public:
    /// The rows from first below end; nothing to do where there are none.
    RowBands(int first, int end) : m_first(first), m_end(end), m_from(first), m_to(limited(first)) {}

    bool areDone() const { return m_from >= m_end; }
    void advance() {
        m_from = m_to;
        m_to = limited(m_from);
    }

    /// The rows of the band for one of the passes, which count from 0: from first below end.
    int first(int pass) const { return std::max(m_from - pass, m_first); }
    int end(int pass) const { return m_to == m_end ? m_end : std::max(m_to - pass, m_first); }

 private:
    /// Twice the rows that go into the largest vector, and few enough to stay in the cache.
    static constexpr int kRows = 32;
    int limited(int from) const { return std::min(m_end - from, kRows) + from; }

    int m_first;
    int m_end;
    int m_from;
    int m_to;
};

/// Lends the inner rows of a picture one after the other, each with the unchanged rows around it, while
/// the picture is being overwritten: only the two rows behind are kept.
class UnchangedRows {
 public:
    explicit UnchangedRows(const FilterFrame& frame)
        : m_frame(frame), m_below(frame.rowBytes()), m_at(frame.rowBytes()) {
        keep(m_at, 0);
    }

    /// The rows around y, where y goes up by 1 from call to call, from 1 to the height minus 2.
    kernels::Rows3 around(int y) {
        std::swap(m_below, m_at);
        keep(m_at, y);
        return {m_below.data(), m_at.data(), m_frame.row(y + 1)};
    }

 private:
    void keep(std::vector<std::uint8_t>& row, int y) { std::memcpy(row.data(), m_frame.row(y), row.size()); }

    const FilterFrame& m_frame;
    std::vector<std::uint8_t> m_below;
    std::vector<std::uint8_t> m_at;
};

}  // namespace mobrel
