// SPDX-License-Identifier: MIT
// The arguments that the benchmarks share.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "support/Size.hpp"

namespace mobrel::bench {

/// What is measured, and how often; 0 rounds stand for as many as the program thinks right.
struct Measure {
    std::vector<Size> sizes;
    int rounds = 0;
};

/// What follows `option`, which ends with '='; nothing for another argument.
std::optional<std::string_view> valueOf(std::string_view argument, std::string_view option);

/// A size as 640x480, or nothing.
std::optional<Size> sizeOf(std::string_view text);

/// Takes --size=WxH, which may come several times, and --rounds=N. Nothing for another argument, false for a
/// value that cannot be read.
std::optional<bool> takeArgument(std::string_view argument, Measure& measure);

}  // namespace mobrel::bench
