// SPDX-License-Identifier: MIT
// Calls a recipe by its operation's name, for programs that walk the catalogue.
#pragma once

#include <array>
#include <string_view>

#include "support/EventLog.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::recipes {

/// Values stand as in ArgumentValues. Random numbers come from a source of their own, fresh at each call.
/// std::invalid_argument for a name that has no recipe.
void callRecipe(std::string_view name, test::Picture& D, const std::array<double, 5>& values,
                const test::Picture& texture, test::EventLog& log);

}  // namespace mobrel::recipes
