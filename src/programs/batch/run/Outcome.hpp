// SPDX-License-Identifier: MIT
// Does one picture: reads it, takes it through the steps, puts the result in its place.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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

/// What became of a picture. The numbers are those of the result, 0 where there is none.
struct Outcome {
    Status status = Status::NotDone;
    int width = 0;
    int height = 0;
    int depth = 0;
    /// The reason, for a picture that failed.
    std::string error;
    /// What else the user should know; mostly empty.
    std::string note;
    double seconds = 0;
    /// Where there is no result.
    std::optional<PictureInfo> info;
};

/// What all pictures of a run have in common.
struct Work {
    std::vector<StepAction> steps;
    const PictureFormat* format = nullptr;
    int quality = kUsualQuality;
    Placement placement = Placement::Beside;
    ReadOptions reading;
    bool keepOrientation = false;
};

/// Makes the steps ready to run, up to an interrupt. Throws UsageError when one names a file that cannot
/// be read.
Work prepareWork(const Options& options);

/// Does one picture. Reports every failure in the outcome and throws nothing. An interrupt drops the
/// picture in the middle of a step; a result that is being written is finished. The random numbers are
/// the same for every picture, so its result depends on nothing but itself and the steps.
Outcome doPicture(const Task& task, const Work& work);

}  // namespace mobrel::batch
