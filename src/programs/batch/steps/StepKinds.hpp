// SPDX-License-Identifier: MIT
// What can be done with a picture, as data and as something to call.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "filters/Argument.hpp"
#include "filters/cDIBFilter.hpp"
#include "platform/pictures/ReadOptions.hpp"
#include "programs/batch/steps/Document.hpp"

namespace mobrel::batch {

/// The values of a step's arguments.
struct StepValues {
    /// One for each argument, in their order; nothing for an optional one that is left out.
    std::vector<std::optional<double>> numbers;
    /// The path, where an argument names a file.
    std::string file;

    bool operator==(const StepValues&) const = default;
};

/// Does the step to one picture. May be called from several threads at once, for pictures of their own.
using StepAction = std::function<void(Document&, cDIBFilter&)>;

struct StepKind {
    std::string_view name;
    std::string_view meaning;
    std::vector<Argument> arguments;
    /// Makes the action for values within their ranges, and reads the file that they name. Throws as
    /// readPictureFile does, and UsageError for values that do not go together.
    std::function<StepAction(const StepValues&, const ReadOptions&)> prepare;
};

/// All of them, in the order of a list for users.
std::span<const StepKind> stepKinds();

}  // namespace mobrel::batch
