// SPDX-License-Identifier: MIT
// Several pictures at once.
#pragma once

#include <functional>
#include <vector>

#include "programs/batch/run/Outcome.hpp"
#include "programs/batch/run/Task.hpp"

namespace mobrel::batch {

/// When not all tasks are to be run to the end.
struct JobLimits {
    /// Tasks at once, at least 1.
    unsigned jobs = 1;
    /// No task is begun after one that failed.
    bool stopOnError = false;
};

/// Does one task; called from several threads at once.
using DoTask = std::function<Outcome(const Task&)>;

/// Hears what became of each task, in the order of the tasks, one call at a time. False when nobody hears
/// it any more: no further task is begun then.
using HearOutcome = std::function<bool(const Task&, const Outcome&)>;

/// Runs the tasks. An interrupt ends it early; every task is heard of all the same.
void runTasks(const std::vector<Task>& tasks, JobLimits limits, const DoTask& work, const HearOutcome& hear);

}  // namespace mobrel::batch
