// SPDX-License-Identifier: MIT
#include "support/Arguments.hpp"

#include <charconv>
#include <system_error>

namespace mobrel::bench {

namespace {

/// A number from 1 up in decimal digits, or nothing.
std::optional<int> positiveNumber(std::string_view text) {
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || value < 1) return std::nullopt;
    return value;
}

}  // namespace

std::optional<std::string_view> valueOf(std::string_view argument, std::string_view option) {
    if (!argument.starts_with(option)) return std::nullopt;
    return argument.substr(option.size());
}

std::optional<Size> sizeOf(std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) return std::nullopt;
    const auto width = positiveNumber(text.substr(0, cross));
    const auto height = positiveNumber(text.substr(cross + 1));
    if (!width || !height) return std::nullopt;
    return Size{*width, *height};
}

std::optional<bool> takeArgument(std::string_view argument, Measure& measure) {
    if (const auto text = valueOf(argument, "--size=")) {
        const auto size = sizeOf(*text);
        if (size) measure.sizes.push_back(*size);
        return size.has_value();
    }
    if (const auto text = valueOf(argument, "--rounds=")) {
        const auto rounds = positiveNumber(*text);
        measure.rounds = rounds.value_or(0);
        return rounds.has_value();
    }
    return std::nullopt;
}

}  // namespace mobrel::bench
