// SPDX-License-Identifier: MIT
// The 27 operations as data: what programs, tests and documents need to know to offer them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace mobrel {

enum class ArgumentKind { Integer, Float, Boolean, Rgb, Texture };

/// One argument of an operation. Values from least to greatest, but for `except`, never end in an error
/// or an endless loop, on any picture.
struct FilterArgument {
    std::string_view name;
    ArgumentKind kind = ArgumentKind::Integer;
    double least = 0;
    double greatest = 0;
    /// What stands in when the argument is left out; nothing when it must be given.
    std::optional<double> preset = {};
    std::optional<double> except = {};
};

/// Which pixels an operation may write.
enum class Border { Changed, Spared };

/// How Progress runs: the row itself after each row of the one pass, or a share of a row after each row
/// of several.
enum class Cadence { EachRow, HalfRows, QuarterRows, EachStep };

struct FilterEntry {
    int slot = 0;
    std::string_view name;
    std::string_view meaning;
    Border border = Border::Changed;
    Cadence cadence = Cadence::EachRow;
    std::array<FilterArgument, 5> allArguments = {};
    std::size_t argumentCount = 0;

    constexpr std::span<const FilterArgument> arguments() const {
        return std::span(allArguments).first(argumentCount);
    }
};

constexpr std::size_t kFilterCount = 27;

/// All operations in slot order: entry i has slot i + 1.
extern const std::array<FilterEntry, kFilterCount> kFilterCatalogue;

}  // namespace mobrel
