// SPDX-License-Identifier: MIT
#include "programs/batch/StepText.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/AsciiText.hpp"
#include "platform/NumberText.hpp"
#include "programs/batch/Failure.hpp"
#include "programs/batch/Words.hpp"

namespace mobrel::batch {

namespace {

template <typename Named>
std::vector<std::string_view> namesOf(std::span<const Named> entries) {
    std::vector<std::string_view> names;
    for (const Named& entry : entries) names.push_back(entry.name);
    return names;
}

// ", did you mean NAME?", or what to do where no name is near.
template <typename Named>
std::string suggestion(std::string_view mistyped, std::span<const Named> entries) {
    const std::string_view nearest = nearestName(mistyped, namesOf(entries));
    if (nearest.empty()) return " (--list shows all)";
    return ", did you mean " + std::string(nearest) + "?";
}

template <typename Named>
const Named* named(std::string_view name, std::span<const Named> entries) {
    const auto found = std::ranges::find_if(
        entries, [&](const Named& entry) { return equalIgnoringCase(entry.name, name); });
    return found == entries.end() ? nullptr : &*found;
}

std::optional<double> booleanOf(std::string_view text) {
    for (const std::string_view word : {"true", "yes", "1"}) {
        if (equalIgnoringCase(text, word)) return 1;
    }
    for (const std::string_view word : {"false", "no", "0"}) {
        if (equalIgnoringCase(text, word)) return 0;
    }
    return std::nullopt;
}

std::optional<std::uint32_t> hexDigitOf(char c) {
    if (isAsciiDigit(c)) return static_cast<std::uint32_t>(c - '0');
    const char letter = asciiLower(c);
    if (letter < 'a' || letter > 'f') return std::nullopt;
    return static_cast<std::uint32_t>(letter - 'a' + 10);
}

// Written red first, stored with red in the lowest byte.
std::optional<double> colorOf(std::string_view text) {
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

std::optional<double> wholeNumberOf(std::string_view text) {
    const std::optional<double> number = numberOf(text);
    return number && *number == std::floor(*number) ? number : std::nullopt;
}

bool isInRange(double value, const FilterArgument& argument) {
    return value >= argument.least && value <= argument.greatest && value != argument.except;
}

// Nothing for what is no number of that kind, whatever its range.
std::optional<double> numberFor(const FilterArgument& argument, std::string_view text) {
    switch (argument.kind) {
        case ArgumentKind::Integer:
            return wholeNumberOf(text);
        case ArgumentKind::Float:
            return numberOf(text);
        case ArgumentKind::Boolean:
            return booleanOf(text);
        case ArgumentKind::Color:
            return colorOf(text);
        case ArgumentKind::Texture:
            break;
    }
    return std::nullopt;
}

// Takes one step's text apart.
class StepReader {
 public:
    explicit StepReader(std::string_view text) : m_text(text) {}

    Step read() {
        const std::size_t colon = m_text.find(':');
        m_step.kind = &kindNamed(m_text.substr(0, colon));
        m_given.resize(arguments().size());
        m_step.values.numbers.resize(arguments().size());
        if (colon != std::string_view::npos) readArguments(m_text.substr(colon + 1));
        fillPresets();
        return std::move(m_step);
    }

 private:
    [[noreturn]] void fail(const std::string& reason) const {
        throw UsageError("'" + onOneLine(m_text) + "': " + onOneLine(reason));
    }

    std::span<const FilterArgument> arguments() const { return m_step.kind->arguments; }

    const StepKind& kindNamed(std::string_view name) const {
        const StepKind* const kind = named(name, stepKinds());
        if (kind == nullptr) fail("there is no step " + std::string(name) + suggestion(name, stepKinds()));
        return *kind;
    }

    const FilterArgument& argumentNamed(std::string_view name) const {
        const std::string step(m_step.kind->name);
        if (arguments().empty()) fail(step + " takes no arguments");
        const FilterArgument* const argument = named(name, arguments());
        if (argument == nullptr) {
            fail(step + " has no argument " + std::string(name) + suggestion(name, arguments()));
        }
        return *argument;
    }

    void readArguments(std::string_view rest) {
        bool more = true;
        while (more) {
            const std::size_t nameEnd = std::min(rest.find_first_of("=,"), rest.size());
            const std::string_view name = rest.substr(0, nameEnd);
            if (name.empty()) fail("an argument is missing, ARGUMENT=VALUE");
            const FilterArgument& argument = argumentNamed(name);
            if (nameEnd == rest.size() || rest[nameEnd] == ',') fail(std::string(name) + " has no value");
            rest.remove_prefix(nameEnd + 1);

            const bool takesAll = argument.kind == ArgumentKind::Texture;
            const std::size_t valueEnd = takesAll ? rest.size() : std::min(rest.find(','), rest.size());
            setValue(argument, rest.substr(0, valueEnd));
            more = valueEnd < rest.size();
            rest.remove_prefix(valueEnd + (more ? 1 : 0));
        }
    }

    void setValue(const FilterArgument& argument, std::string_view value) {
        const auto index = static_cast<std::size_t>(&argument - arguments().data());
        if (m_given[index]) fail(std::string(argument.name) + " is given twice");
        m_given[index] = true;
        if (argument.kind == ArgumentKind::Texture) {
            if (value.empty()) failRequirement(argument);
            m_step.values.file = value;
            return;
        }
        const std::optional<double> number = numberFor(argument, value);
        if (!number || !isInRange(*number, argument)) failRequirement(argument);
        m_step.values.numbers[index] = *number;
    }

    [[noreturn]] void failRequirement(const FilterArgument& argument) const {
        fail(std::string(argument.name) + " must be " + requirementOf(argument));
    }

    void fillPresets() {
        for (std::size_t i = 0; i < arguments().size(); ++i) {
            if (m_given[i]) continue;
            const FilterArgument& argument = arguments()[i];
            if (!argument.preset) {
                fail(std::string(argument.name) + " must be given, " + requirementOf(argument));
            }
            m_step.values.numbers[i] = *argument.preset;
        }
    }

    std::string_view m_text;
    Step m_step;
    std::vector<bool> m_given;
};

}  // namespace

Step parseStep(std::string_view text) {
    return StepReader(text).read();
}

std::string requirementOf(const FilterArgument& argument) {
    switch (argument.kind) {
        case ArgumentKind::Boolean:
            return "true or false";
        case ArgumentKind::Color:
            return "a colour as #RRGGBB";
        case ArgumentKind::Texture:
            return "the path of a BMP file";
        case ArgumentKind::Integer:
        case ArgumentKind::Float:
            break;
    }
    std::string words = argument.kind == ArgumentKind::Integer ? "a whole number from " : "a number from ";
    words += decimalOf(argument.least) + " to " + decimalOf(argument.greatest);
    if (argument.except) words += " but not " + decimalOf(*argument.except);
    return words;
}

}  // namespace mobrel::batch
