// SPDX-License-Identifier: MIT
// The filters as steps.
#pragma once

#include <vector>

#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

/// One step for each operation of the catalogue, in its order.
std::vector<StepKind> filterSteps();

}  // namespace mobrel::batch
