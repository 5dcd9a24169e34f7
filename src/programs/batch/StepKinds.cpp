// SPDX-License-Identifier: MIT
#include "programs/batch/StepKinds.hpp"

#include "programs/batch/DepthStep.hpp"
#include "programs/batch/FilterSteps.hpp"

namespace mobrel::batch {

namespace {

std::vector<StepKind> makeKinds() {
    std::vector<StepKind> kinds = filterSteps();
    kinds.push_back(depthStep());
    return kinds;
}

}  // namespace

std::span<const StepKind> stepKinds() {
    static const std::vector<StepKind> kinds = makeKinds();
    return kinds;
}

}  // namespace mobrel::batch
