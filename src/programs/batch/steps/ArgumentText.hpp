// SPDX-License-Identifier: MIT
// The values of arguments as they are written on the command line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "filters/Argument.hpp"

namespace mobrel::batch {

/// The value that is written so: integers without a fraction; booleans as true, false, yes, no, 1 or 0;
/// colours as #RRGGBB; words in any letter case; textures as a path, whose value is 0. Nothing for any other
/// text and for values out of range.
std::optional<double> valueOf(const Argument& argument, std::string_view text);

/// A colour that is written as #RRGGBB, as 0x00BBGGRR.
std::optional<std::uint32_t> colorOf(std::string_view text);

/// How a value is written, with no more digits than it needs.
std::string valueText(const Argument& argument, double value);

/// What the values must be, as it stands in messages and lists: "a whole number from 1 to 2901".
std::string requirementOf(const Argument& argument);

}  // namespace mobrel::batch
