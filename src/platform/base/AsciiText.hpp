// SPDX-License-Identifier: MIT
// Text whose letters are those of ASCII; bytes from 0x80 up are never changed or matched as letters.
#pragma once

#include <algorithm>
#include <string_view>

namespace mobrel {

constexpr char asciiLower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isAsciiDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Equal but for the case of ASCII letters.
constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

constexpr bool isBlank(char c) noexcept {
    return c == ' ' || c == '\t';
}

constexpr std::string_view withoutLeadingBlanks(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    return text;
}

constexpr std::string_view withoutTrailingBlanks(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

constexpr std::string_view withoutOuterBlanks(std::string_view text) noexcept {
    return withoutLeadingBlanks(withoutTrailingBlanks(text));
}

}  // namespace mobrel
