// SPDX-License-Identifier: MIT
// The unchanged rows near one that is being overwritten.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "filters/FilterFrame.hpp"
#include "filters/kernels/diffuse_noise.hpp"
#include "imaging/cDIB.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {

/// Keeps the rows up to a distance below and above the one being overwritten, as they were. Where that is
/// the whole picture, it is copied whole.
class NearRows {
 public:
    /// The distance is the magnitude of `range`. Error 7 when there is no memory.
    NearRows(const FilterFrame& frame, std::int32_t range)
        : m_frame(frame),
          m_reach(static_cast<int>(std::min<std::int64_t>(std::abs(std::int64_t{range}), frame.height()))),
          m_kept(static_cast<int>(std::min<std::int64_t>(std::int64_t{m_reach} * 2 + 1, frame.height()))) {
        if (!m_copies.Create(frame.width(), m_kept, 0)) throw RuntimeError(ErrorNumber::OutOfMemory);
    }

    /// The rows around y, where y goes up from call to call and rows above the last one are unchanged.
    kernels::KeptRows around(int y) {
        const int end = std::min(y + m_reach + 1, m_frame.height());
        for (m_next = std::max(m_next, y - m_reach); m_next < end; ++m_next) {
            const auto slot = static_cast<std::size_t>(m_next % m_kept);
            std::memcpy(m_copies.DIBitsPtr() + slot * m_frame.rowBytes(), m_frame.row(m_next),
                        m_frame.rowBytes());
        }
        return {m_copies.DIBitsPtr(), m_frame.width(), m_frame.height(), m_kept};
    }

 private:
    const FilterFrame& m_frame;
    int m_reach;
    int m_kept;
    cDIB m_copies;
    int m_next = 0;
};

}  // namespace mobrel
