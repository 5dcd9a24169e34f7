// SPDX-License-Identifier: MIT
// Texts in JSON.
#pragma once

#include <string>
#include <string_view>

namespace mobrel {

/// The text as a JSON string, with its quotes. A byte that is no part of valid UTF-8 becomes \u00XX, X its
/// hexadecimal digits.
///
/// Source: RFC 8259, section 7; RFC 3629, section 4 (which bytes are UTF-8).
std::string jsonString(std::string_view text);

}  // namespace mobrel
