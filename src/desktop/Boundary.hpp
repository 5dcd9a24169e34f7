// SPDX-License-Identifier: MIT
// Where the toolkit calls into the core: an error stops here.
#pragma once

#include <string_view>
#include <utility>

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

/// Tells the text of an error in a message box. By errorPolicy() it then ends the run: deletes the snapshots
/// and ends the process with status 1, without going back through the toolkit; an error that comes while the
/// box is open ends it at once.
void handleError(std::string_view text);

/// Runs an event handler of the toolkit. No error goes on into the toolkit.
template <typename Entry>
void enterCore(Entry&& entry) {
    if (const auto text = fatalErrorOf(std::forward<Entry>(entry))) handleError(*text);
}

}  // namespace mobrel
