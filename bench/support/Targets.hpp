// SPDX-License-Identifier: MIT
// How fast each operation is meant to be.
#pragma once

#include <optional>
#include <string_view>

namespace mobrel::bench {

/// The most copies of the picture that an operation may take, for pictures that no cache holds. Nothing for
/// an operation without a target.
std::optional<double> targetOf(std::string_view operation);

}  // namespace mobrel::bench
