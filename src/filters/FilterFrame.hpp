// SPDX-License-Identifier: MIT
// What all filters share: the surface test, the rows, the progress values, the end event.
#pragma once

#include <cstdint>

#include "imaging/cDIB.hpp"
#include "platform/Event.hpp"
#include "platform/Numbers.hpp"

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

    /// One pass: calls work(y) for each row of [first, end) and raises Progress(y) after it.
    template <typename Work>
    void onePass(int first, int end, Work work) const {
        for (int y = first; y < end; ++y) {
            work(y);
            m_progress.raise(y);
        }
    }

    /// One of several passes: each finished row adds `share` to a float that is raised rounded, so the
    /// value climbs once over all passes.
    template <typename Work>
    void sharedPass(float share, int first, int end, Work work) {
        for (int y = first; y < end; ++y) {
            work(y);
            m_done += share;
            m_progress.raise(roundInt(m_done));
        }
    }

    void finish() const { m_progressEnd.raise(); }

 private:
    cDIB& m_dib;
    const Event<std::int32_t>& m_progress;
    const Event<>& m_progressEnd;
    float m_done = 0;
};

}  // namespace mobrel
