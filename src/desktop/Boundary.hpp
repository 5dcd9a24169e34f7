// SPDX-License-Identifier: MIT
// Where the toolkit calls into the core: an error stops here and ends the program.
#pragma once

#include <string_view>
#include <utility>

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

/// Tells the text of an error in a message box, deletes the snapshots and ends the process with status 1,
/// without going back through the toolkit. An error that comes while the box is open ends it at once.
[[noreturn]] void endWithError(std::string_view text);

/// Runs an event handler of the toolkit. An error that reaches it is fatal; none goes on into the toolkit.
template <typename Entry>
void enterCore(Entry&& entry) {
    if (const auto text = fatalErrorOf(std::forward<Entry>(entry))) endWithError(*text);
}

}  // namespace mobrel
