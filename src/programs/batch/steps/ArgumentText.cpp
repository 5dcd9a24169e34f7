// SPDX-License-Identifier: MIT
#include "programs/batch/steps/ArgumentText.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <span>

#include "platform/base/AsciiText.hpp"
#include "platform/base/NumberText.hpp"

namespace mobrel::batch {

namespace {

// The place of the word in the list.
std::optional<double> choiceOf(std::span<const std::string_view> words, std::string_view text) {
    const auto found =
        std::ranges::find_if(words, [&](std::string_view word) { return equalIgnoringCase(word, text); });
    if (found == words.end()) return std::nullopt;
    return static_cast<double>(found - words.begin());
}

std::optional<double> booleanOf(std::string_view text) {
    static constexpr std::string_view kWords[] = {"false", "true", "no", "yes", "0", "1"};
    const std::optional<double> place = choiceOf(kWords, text);
    if (!place) return std::nullopt;
    return std::fmod(*place, 2);
}

std::optional<double> wholeNumberOf(std::string_view text) {
    const std::optional<double> number = numberOf(text);
    return number && *number == std::floor(*number) ? number : std::nullopt;
}

// Whatever the range.
std::optional<double> numberFor(const Argument& argument, std::string_view text) {
    switch (argument.kind) {
        case ArgumentKind::Integer:
            return wholeNumberOf(text);
        case ArgumentKind::Float:
            return numberOf(text);
        case ArgumentKind::Boolean:
            return booleanOf(text);
        case ArgumentKind::Rgb:
            return colorOf(text);
        case ArgumentKind::Choice:
            return choiceOf(argument.choices, text);
        case ArgumentKind::Texture:
            break;
    }
    return text.empty() ? std::nullopt : std::optional(0.0);
}

std::string rangeOf(const Argument& argument) {
    std::string words = textOf(argument.least) + " to " + textOf(argument.greatest);
    if (argument.except) words += " but not " + textOf(*argument.except);
    return words;
}

std::string listOf(std::span<const std::string_view> choices) {
    std::string words;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (i > 0) words += i + 1 < choices.size() ? ", " : " or ";
        words += choices[i];
    }
    return words;
}

}  // namespace

std::optional<std::uint32_t> colorOf(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    std::uint32_t rgb = 0;
    const char* const end = text.data() + text.size();
    if (std::from_chars(text.data() + 1, end, rgb, 16).ptr != end) return std::nullopt;
    return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

std::optional<double> valueOf(const Argument& argument, std::string_view text) {
    const std::optional<double> value = numberFor(argument, text);
    if (!value || *value < argument.least || *value > argument.greatest || value == argument.except) {
        return std::nullopt;
    }
    return value;
}

std::string valueText(const Argument& argument, double value) {
    switch (argument.kind) {
        case ArgumentKind::Boolean:
            return value != 0 ? "true" : "false";
        case ArgumentKind::Choice:
            return std::string(argument.choices[static_cast<std::size_t>(value)]);
        default:
            return textOf(value);
    }
}

std::string requirementOf(const Argument& argument) {
    switch (argument.kind) {
        case ArgumentKind::Integer:
            return "a whole number from " + rangeOf(argument);
        case ArgumentKind::Float:
            return "a number from " + rangeOf(argument);
        case ArgumentKind::Boolean:
            return "true or false";
        case ArgumentKind::Rgb:
            return "a colour as #RRGGBB";
        case ArgumentKind::Choice:
            return listOf(argument.choices);
        case ArgumentKind::Texture:
            break;
    }
    return "the path of a picture file";
}

}  // namespace mobrel::batch
