// SPDX-License-Identifier: MIT
#include "platform/base/NumberText.hpp"

#include <array>
#include <charconv>

#include "platform/base/AsciiText.hpp"

namespace mobrel {

namespace {

// Of a number beyond the range of double: whether it is too small rather than too large.
bool isBelowOne(std::string_view text) {
    long double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && number < 1 && number > -1;
}

template <typename Number>
std::string decimalText(Number number) {
    std::array<char, 400> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

}  // namespace

std::optional<double> numberOf(std::string_view text) {
    text = withoutOuterBlanks(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    // from_chars also reads the words for infinity and not-a-number, which are no numbers here.
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;

    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (stop != end) return std::nullopt;
    if (error == std::errc::result_out_of_range && isBelowOne(text)) return 0;
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

std::string textOf(float number) {
    return decimalText(number);
}

std::string textOf(double number) {
    return decimalText(number);
}

}  // namespace mobrel
