// SPDX-License-Identifier: MIT
// The number rules of the recipes, written apart from those of the code that they check.
#pragma once

#include <cmath>
#include <cstdint>

#include "platform/base/RuntimeError.hpp"
#include "support/EventLog.hpp"

namespace mobrel::recipes {

/// The low 32 bits, as a signed number.
inline std::int32_t wrap(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

/// Nearest integer, ties to even. Error 6 outside 32 bits and for no number.
inline std::int32_t rounded(double value) {
    const double nearest = std::nearbyint(value);
    if (std::isnan(nearest) || nearest < -2147483648.0 || nearest > 2147483647.0) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int32_t>(nearest);
}

/// Integer quotient truncated toward zero. Error 11 for a divisor of 0.
inline std::int32_t quotient(std::int32_t dividend, std::int32_t divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return wrap(std::int64_t{dividend} / divisor);
}

/// Error 6 outside 0 to 255.
inline std::uint8_t byteOf(std::int32_t value) {
    if (value < 0 || value > 255) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(value);
}

inline std::uint8_t clamped(std::int32_t value) {
    if (value < 0) return 0;
    if (value > 255) return 255;
    return static_cast<std::uint8_t>(value);
}

/// The progress of filters with more than one pass: each finished row counts for a part of one.
class PassProgress {
 public:
    explicit PassProgress(float rowPart) : m_rowPart(rowPart) {}

    void rowDone(test::EventLog& log) {
        m_sum += m_rowPart;
        log.progress(rounded(m_sum));
    }

 private:
    float m_rowPart;
    float m_sum = 0;
};

}  // namespace mobrel::recipes
