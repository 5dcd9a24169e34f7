// SPDX-License-Identifier: MIT
// Steps as they are written on the command line.
#pragma once

#include <string>
#include <string_view>

#include "programs/batch/StepKinds.hpp"

namespace mobrel::batch {

struct Step {
    const StepKind* kind = nullptr;
    StepValues values;
};

/// Reads NAME or NAME:ARGUMENT=VALUE,ARGUMENT=VALUE,... in any order and letter case. What is left out has
/// its preset. Integers may not have a fraction; booleans are true, false, yes, no, 1 or 0; colours are
/// #RRGGBB. A path goes to the end of the text. The file is not looked at.
///
/// Throws UsageError for anything else, and for values out of range.
Step parseStep(std::string_view text);

/// What the values of an argument must be, as it stands in messages and lists: "a whole number from 1 to
/// 2901".
std::string requirementOf(const FilterArgument& argument);

}  // namespace mobrel::batch
