// SPDX-License-Identifier: MIT
#include "programs/batch/steps/StepText.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "platform/base/AsciiText.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/MessageText.hpp"

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

    std::span<const StepArgument> arguments() const { return m_step.kind->arguments; }

    const StepKind& kindNamed(std::string_view name) const {
        const StepKind* const kind = named(name, stepKinds());
        if (kind == nullptr) fail("there is no step " + std::string(name) + suggestion(name, stepKinds()));
        return *kind;
    }

    const StepArgument& argumentNamed(std::string_view name) const {
        const std::string step(m_step.kind->name);
        if (arguments().empty()) fail(step + " takes no arguments");
        const StepArgument* const argument = named(name, arguments());
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
            const StepArgument& argument = argumentNamed(name);
            if (nameEnd == rest.size() || rest[nameEnd] == ',') fail(std::string(name) + " has no value");
            rest.remove_prefix(nameEnd + 1);

            const bool takesAll = argument.kind == ValueKind::File;
            const std::size_t valueEnd = takesAll ? rest.size() : std::min(rest.find(','), rest.size());
            setValue(argument, rest.substr(0, valueEnd));
            more = valueEnd < rest.size();
            rest.remove_prefix(valueEnd + (more ? 1 : 0));
        }
    }

    void setValue(const StepArgument& argument, std::string_view value) {
        const auto index = static_cast<std::size_t>(&argument - arguments().data());
        if (m_given[index]) fail(std::string(argument.name) + " is given twice");
        m_given[index] = true;
        if (argument.kind == ValueKind::File) {
            if (value.empty()) failRequirement(argument);
            m_step.values.file = value;
            m_step.values.numbers[index] = 0;
            return;
        }
        const std::optional<double> number = valueOf(argument, value);
        if (!number) failRequirement(argument);
        m_step.values.numbers[index] = *number;
    }

    [[noreturn]] void failRequirement(const StepArgument& argument) const {
        fail(std::string(argument.name) + " must be " + requirementOf(argument));
    }

    void fillPresets() {
        for (std::size_t i = 0; i < arguments().size(); ++i) {
            if (m_given[i]) continue;
            const StepArgument& argument = arguments()[i];
            if (!argument.preset) {
                if (argument.isOptional) continue;
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

}  // namespace mobrel::batch
