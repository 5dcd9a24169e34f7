// SPDX-License-Identifier: MIT
// The 27 operations as data and as something to call: what programs, tests and documents need to know to
// offer them.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "filters/Argument.hpp"
#include "filters/cDIBFilter.hpp"
#include "imaging/cDIB.hpp"

namespace mobrel {

/// Which pixels an operation may write.
enum class Border { Changed, Spared };

/// How Progress runs: the row itself after each row of the one pass, or a share of a row after each row
/// of several.
enum class Cadence { EachRow, HalfRows, QuarterRows, EachStep };

constexpr std::size_t kMostArguments = 5;

/// The values of an operation's arguments, in their order.
struct ArgumentValues {
    std::array<double, kMostArguments> numbers = {};
    const cDIB* texture = nullptr;
};

struct FilterEntry {
    std::string_view name;
    std::string_view meaning;
    Border border = Border::Changed;
    Cadence cadence = Cadence::EachRow;
    /// Error 5 for a texture that is not there. Values in the ranges of the arguments never end in another
    /// error or an endless loop, on any picture.
    void (*apply)(cDIBFilter& filter, cDIB& DIB, const ArgumentValues& values) = nullptr;
    std::array<Argument, kMostArguments> allArguments = {};
    std::size_t argumentCount = 0;

    constexpr std::span<const Argument> arguments() const {
        return std::span(allArguments).first(argumentCount);
    }
};

constexpr std::size_t kFilterCount = 27;

/// All operations, in the order of docs/filters.md.
extern const std::array<FilterEntry, kFilterCount> kFilterCatalogue;

}  // namespace mobrel
