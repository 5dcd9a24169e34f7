// SPDX-License-Identifier: MIT
// The slider control.
#pragma once

#include <cstdint>

namespace mobrel {

class zenSlider {
 public:
    std::int32_t Value() const noexcept { return m_value; }
    void setValue(std::int32_t value) noexcept { m_value = value; }

 private:
    std::int32_t m_value = 0;
};

}  // namespace mobrel
