// SPDX-License-Identifier: MIT
// Outcomes as lines of JSON.
#pragma once

#include <string>

#include "programs/batch/run/Outcome.hpp"

namespace mobrel::batch {

/// What became of a picture, as one object on one line, without the line's end.
std::string jsonLine(const Task& task, const Outcome& outcome);

}  // namespace mobrel::batch
