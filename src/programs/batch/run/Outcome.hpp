// SPDX-License-Identifier: MIT
// Does a task and tells what became of it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "programs/batch/run/Options.hpp"
#include "programs/batch/run/PictureInfo.hpp"
#include "programs/batch/run/Task.hpp"
#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

enum class Status {
    NotDone,  ///< not begun, or dropped in the middle
    Done,
    Failed,
};

/// What became of a task. The numbers are those of the result, 0 where there is none.
struct Outcome {
    Status status = Status::NotDone;
    int width = 0;
    int height = 0;
    int depth = 0;
    /// The reason, for a task that failed.
    std::string error;
    /// What else the user should know; mostly empty.
    std::string note;
    double seconds = 0;
    /// Where there is no result.
    std::optional<PictureInfo> info;
};

/// Takes a task's picture through the steps and puts the result in its place. Reports every failure in the
/// outcome and throws nothing. An interrupt drops the picture in the middle of a step; a result that is being
/// written is finished. The random numbers are the same for every picture, so its result depends on nothing
/// but itself and the steps.
Outcome doTask(const Task& task, std::span<const StepAction> steps, const Options& options);

}  // namespace mobrel::batch
