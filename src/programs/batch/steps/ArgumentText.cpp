// SPDX-License-Identifier: MIT
#include "programs/batch/steps/ArgumentText.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/base/AsciiText.hpp"
#include "platform/base/NumberText.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

ValueKind kindOf(ArgumentKind kind) {
    switch (kind) {
        case ArgumentKind::Integer:
            return ValueKind::Integer;
        case ArgumentKind::Float:
            return ValueKind::Float;
        case ArgumentKind::Boolean:
            return ValueKind::Boolean;
        case ArgumentKind::Rgb:
            return ValueKind::Rgb;
        case ArgumentKind::Texture:
            break;
    }
    return ValueKind::File;
}

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

std::optional<std::uint32_t> hexDigitOf(char c) {
    if (isAsciiDigit(c)) return static_cast<std::uint32_t>(c - '0');
    const char letter = asciiLower(c);
    if (letter < 'a' || letter > 'f') return std::nullopt;
    return static_cast<std::uint32_t>(letter - 'a' + 10);
}

std::optional<double> wholeNumberOf(std::string_view text) {
    const std::optional<double> number = numberOf(text);
    return number && *number == std::floor(*number) ? number : std::nullopt;
}

// Whatever the range.
std::optional<double> numberFor(const StepArgument& argument, std::string_view text) {
    switch (argument.kind) {
        case ValueKind::Integer:
            return wholeNumberOf(text);
        case ValueKind::Float:
            return numberOf(text);
        case ValueKind::Boolean:
            return booleanOf(text);
        case ValueKind::Rgb:
            return colorOf(text);
        case ValueKind::Choice:
            return choiceOf(argument.choices, text);
        case ValueKind::File:
            break;
    }
    return std::nullopt;
}

std::string rangeOf(const StepArgument& argument) {
    std::string words = decimalOf(argument.least) + " to " + decimalOf(argument.greatest);
    if (argument.except) words += " but not " + decimalOf(*argument.except);
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
    std::uint32_t color = 0;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        const auto high = hexDigitOf(text[1 + 2 * channel]);
        const auto low = hexDigitOf(text[2 + 2 * channel]);
        if (!high || !low) return std::nullopt;
        color |= (*high << 4 | *low) << (8 * channel);
    }
    return color;
}

StepArgument stepArgument(const FilterArgument& argument) {
    return {argument.name,     kindOf(argument.kind), argument.least,
            argument.greatest, argument.preset,       argument.except};
}

StepArgument choiceArgument(std::string_view name, std::span<const std::string_view> choices) {
    StepArgument argument{name, ValueKind::Choice, 0, static_cast<double>(choices.size()) - 1};
    argument.choices = choices;
    return argument;
}

std::optional<double> valueOf(const StepArgument& argument, std::string_view text) {
    const std::optional<double> value = numberFor(argument, text);
    if (!value || *value < argument.least || *value > argument.greatest || value == argument.except) {
        return std::nullopt;
    }
    return value;
}

std::string textOf(const StepArgument& argument, double value) {
    switch (argument.kind) {
        case ValueKind::Boolean:
            return value != 0 ? "true" : "false";
        case ValueKind::Choice:
            return std::string(argument.choices[static_cast<std::size_t>(value)]);
        default:
            return decimalOf(value);
    }
}

std::string requirementOf(const StepArgument& argument) {
    switch (argument.kind) {
        case ValueKind::Integer:
            return "a whole number from " + rangeOf(argument);
        case ValueKind::Float:
            return "a number from " + rangeOf(argument);
        case ValueKind::Boolean:
            return "true or false";
        case ValueKind::Rgb:
            return "a colour as #RRGGBB";
        case ValueKind::Choice:
            return listOf(argument.choices);
        case ValueKind::File:
            break;
    }
    return "the path of a picture file";
}

}  // namespace mobrel::batch
