// SPDX-License-Identifier: MIT
// One argument of a step: its values as they are written, and as numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "filters/FilterCatalogue.hpp"

namespace mobrel::batch {

enum class ValueKind { Integer, Float, Boolean, Rgb, Choice, File };

struct StepArgument {
    std::string_view name;
    ValueKind kind = ValueKind::Integer;
    /// A value is a number from least to greatest, but for `except`: of a boolean 0 or 1, of a colour
    /// 0x00BBGGRR, of a choice the place of its word. A file's is 0; its path is kept elsewhere.
    double least = 0;
    double greatest = 0;
    /// What stands in when the argument is left out; nothing when it must be given.
    std::optional<double> preset = {};
    std::optional<double> except = {};
    /// The words of a choice.
    std::span<const std::string_view> choices = {};
    /// The step also goes without it.
    bool isOptional = false;
};

/// An argument of a filter, as a step takes it.
StepArgument stepArgument(const FilterArgument& argument);

/// An argument that must be one of those words.
StepArgument choiceArgument(std::string_view name, std::span<const std::string_view> choices);

/// The value that is written so: integers without a fraction; booleans as true, false, yes, no, 1 or 0;
/// colours as #RRGGBB; words in any letter case. Nothing for any other text, for values out of range, and
/// for files.
std::optional<double> valueOf(const StepArgument& argument, std::string_view text);

/// A colour that is written as #RRGGBB, as 0x00BBGGRR.
std::optional<std::uint32_t> colorOf(std::string_view text);

/// How a value is written, with no more digits than it needs.
std::string textOf(const StepArgument& argument, double value);

/// What the values must be, as it stands in messages and lists: "a whole number from 1 to 2901".
std::string requirementOf(const StepArgument& argument);

}  // namespace mobrel::batch
