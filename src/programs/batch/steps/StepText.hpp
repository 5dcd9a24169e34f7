// SPDX-License-Identifier: MIT
// Steps as they are written on the command line.
#pragma once

#include <string>
#include <string_view>

#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

struct Step {
    const StepKind* kind = nullptr;
    StepValues values;
};

/// Reads NAME or NAME:ARGUMENT=VALUE,ARGUMENT=VALUE,... in any order and letter case. What is left out has
/// its preset. A path goes to the end of the text. The file is not looked at.
///
/// Throws UsageError for anything else, and for values out of range.
Step parseStep(std::string_view text);

}  // namespace mobrel::batch
