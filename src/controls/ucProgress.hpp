// SPDX-License-Identifier: MIT
// The progress bar of the main window.
#pragma once

#include <cstdint>

namespace mobrel {

class ucProgress {
 public:
    std::int32_t Max() const noexcept { return m_max; }
    /// The value of the full bar; below 1 counts as 1.
    void setMax(std::int32_t value) noexcept { m_max = value < 1 ? 1 : value; }

    std::int32_t Value() const noexcept { return m_value; }
    /// May be above Max.
    void setValue(std::int32_t value) noexcept { m_value = value; }

 private:
    std::int32_t m_max = 100;
    std::int32_t m_value = 0;
};

}  // namespace mobrel
