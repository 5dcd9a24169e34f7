// SPDX-License-Identifier: MIT
// All tasks of a run, several at once.
#pragma once

#include <span>
#include <vector>

#include "programs/batch/run/Options.hpp"
#include "programs/batch/run/Report.hpp"
#include "programs/batch/run/Task.hpp"
#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

/// Makes the steps ready to run, up to an interrupt. Throws UsageError when one names a file that cannot
/// be read.
std::vector<StepAction> prepareSteps(const Options& options);

/// Does the tasks and reports each, in their order. No task is begun after an interrupt, after one that
/// failed with --stop-on-error, or once the report cannot be written; those are reported as not done.
void runTasks(std::span<const Task> tasks, std::span<const StepAction> steps, const Options& options,
              Report& report);

}  // namespace mobrel::batch
