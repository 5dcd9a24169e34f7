// SPDX-License-Identifier: MIT
// The list of all steps, for --list.
#pragma once

#include <string>

namespace mobrel::batch {

/// Each step on a line with its meaning, and each of its arguments on an indented one: ARGUMENT=PRESET and
/// what its values must be, or ARGUMENT alone where it must be given.
std::string stepList();

}  // namespace mobrel::batch
