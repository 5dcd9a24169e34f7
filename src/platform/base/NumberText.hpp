// SPDX-License-Identifier: MIT
// Numbers in texts, the same in every locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mobrel {

/// The number a text tells: blanks around, a sign, digits, a fraction and an exponent ("07", " 28 ",
/// "2.8e1"). Nothing for any other text, for an empty one, and for one beyond the range of a double.
std::optional<double> numberOf(std::string_view text);

/// The shortest decimal text that gives the number again, without an exponent ("15000", "-0.5").
std::string textOf(float number);
std::string textOf(double number);

}  // namespace mobrel
