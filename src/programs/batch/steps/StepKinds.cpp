// SPDX-License-Identifier: MIT
#include "programs/batch/steps/StepKinds.hpp"

#include "programs/batch/steps/DepthStep.hpp"
#include "programs/batch/steps/FilterSteps.hpp"
#include "programs/batch/steps/GeometrySteps.hpp"

namespace mobrel::batch {

namespace {

std::vector<StepKind> makeKinds() {
    std::vector<StepKind> kinds = filterSteps();
    kinds.insert(kinds.end(), {depthStep(), resizeStep(), orientationStep(), cropStep()});
    return kinds;
}

}  // namespace

std::span<const StepKind> stepKinds() {
    static const std::vector<StepKind> kinds = makeKinds();
    return kinds;
}

}  // namespace mobrel::batch
