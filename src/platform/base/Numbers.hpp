// SPDX-License-Identifier: MIT
// The number rules of the engine: every conversion and division of a recipe goes through these names.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

/// The nearest integer, ties to the even one (0.5 gives 0, 1.5 gives 2).
/// Error 6 when the result does not fit 32 bits, also for a value that is no number.
inline std::int32_t roundInt(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<std::int32_t>(rounded);
}

/// The number, or the nearest one that fits 32 bits.
constexpr std::int32_t clampInt(std::int64_t value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}
/// The same of a whole number; a value that is no number gives the least one.
constexpr std::int32_t clampInt(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(value > Limits::min())) return Limits::min();
    return value < Limits::max() ? static_cast<std::int32_t>(value) : Limits::max();
}

/// roundInt that stops at the ends of 32 bits.
inline std::int32_t roundClamped(double value) {
    return clampInt(std::nearbyint(value));
}

/// 32-bit sum, difference and product without an overflow test: they wrap.
constexpr std::int32_t wrapAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrapSub(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
constexpr std::int32_t wrapMul(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

/// Integer quotient truncated toward zero. Error 11 when the divisor is 0; the one quotient that does
/// not fit 32 bits wraps.
constexpr std::int32_t div(std::int32_t dividend, std::int32_t divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return divisor == -1 ? wrapSub(0, dividend) : dividend / divisor;
}

/// The value as a byte. Error 6 outside 0 to 255.
constexpr std::uint8_t toByte(std::int32_t value) {
    if (value < 0 || value > 255) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::uint8_t>(value);
}

/// The value limited to 0 to 255.
constexpr std::uint8_t clampByte(std::int32_t value) {
    return static_cast<std::uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value);
}

}  // namespace mobrel
