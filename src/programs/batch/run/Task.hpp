// SPDX-License-Identifier: MIT
// Which picture goes where.
#pragma once

#include <string>
#include <vector>

#include "programs/batch/run/Options.hpp"

namespace mobrel::batch {

struct Task {
    std::string picture;
    /// For --in-place the picture's own path, links resolved. Empty where there is no result.
    std::string target;
    /// Why it is not to be begun; mostly empty.
    std::string refusal;
};

/// One task a picture, in their order. Of pictures that share a target all but the first are refused, and
/// those whose target is another picture: the result would depend on which is faster.
std::vector<Task> planTasks(const Options& options);

}  // namespace mobrel::batch
