// SPDX-License-Identifier: MIT
// The depth commands as a step.
#pragma once

#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

/// "Depth", with the mode by its name.
StepKind depthStep();

}  // namespace mobrel::batch
