// SPDX-License-Identifier: MIT
// Names in messages.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace mobrel::batch {

/// The text on one line: its control characters as \xHH. All other bytes stay, whatever their encoding.
std::string onOneLine(std::string_view text);

/// The name of the list that a mistyped one was probably meant to be, without regard to the case of
/// ASCII letters. Empty when none is near: when more than half of it would have to change.
std::string_view nearestName(std::string_view mistyped, std::span<const std::string_view> names);

}  // namespace mobrel::batch
