// SPDX-License-Identifier: MIT
// The arguments that the benchmarks share.
#pragma once

#include <optional>
#include <string_view>

#include "support/Size.hpp"

namespace mobrel::bench {

inline constexpr std::string_view kSizeOption = "--size=";
inline constexpr std::string_view kRoundsOption = "--rounds=";

/// What follows `option`, which ends with '='; nothing for another argument.
std::optional<std::string_view> valueOf(std::string_view argument, std::string_view option);

/// A number from 1 up in decimal digits, or nothing.
std::optional<int> positiveNumber(std::string_view text);

/// A size as 640x480, or nothing.
std::optional<Size> sizeOf(std::string_view text);

}  // namespace mobrel::bench
