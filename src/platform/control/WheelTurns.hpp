// SPDX-License-Identifier: MIT
// Steps of a mouse wheel.
#pragma once

#include <cstdint>

namespace mobrel {

/// Adds up turns of a wheel, 120 a notch, of which touchpads send parts.
class WheelTurns {
 public:
    /// The whole steps that a turn brings; what is left counts with the next.
    std::int64_t take(std::int64_t turn, int stepsPerNotch = 1) {
        constexpr int kNotch = 120;
        const std::int64_t total = m_rest + turn * stepsPerNotch;
        m_rest = total % kNotch;
        return total / kNotch;
    }

    /// What is less than a step yet; negative towards the user.
    std::int64_t rest() const noexcept { return m_rest; }

 private:
    std::int64_t m_rest = 0;
};

}  // namespace mobrel
