// SPDX-License-Identifier: MIT
#include "programs/batch/steps/StepText.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

#include "platform/base/AsciiText.hpp"
#include "programs/batch/steps/ArgumentText.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

// Takes one step's text apart.
class StepReader {
 public:
    explicit StepReader(std::string_view text) : m_text(text) {}

    Step read() {
        const std::size_t colon = m_text.find(':');
        m_step.kind = &entryNamed(m_text.substr(0, colon), stepKinds(), "there is no step ");
        m_step.values.numbers.resize(arguments().size());
        if (colon != std::string_view::npos) readArguments(m_text.substr(colon + 1));
        fillPresets();
        return std::move(m_step);
    }

 private:
    [[noreturn]] void fail(const std::string& reason) const {
        throw UsageError("'" + onOneLine(m_text) + "': " + onOneLine(reason));
    }

    std::span<const Argument> arguments() const { return m_step.kind->arguments; }

    template <typename Named>
    const Named& entryNamed(std::string_view name, std::span<const Named> entries,
                            const std::string& complaint) const {
        const auto found = std::ranges::find_if(
            entries, [&](const Named& entry) { return equalIgnoringCase(entry.name, name); });
        if (found != entries.end()) return *found;
        std::vector<std::string_view> names;
        std::ranges::transform(entries, std::back_inserter(names), &Named::name);
        const std::string_view nearest = nearestName(name, names);
        fail(complaint + std::string(name) +
             (nearest.empty() ? " (--list shows all)" : ", did you mean " + std::string(nearest) + "?"));
    }

    const Argument& argumentNamed(std::string_view name) const {
        const std::string step(m_step.kind->name);
        if (arguments().empty()) fail(step + " takes no arguments");
        return entryNamed(name, arguments(), step + " has no argument ");
    }

    void readArguments(std::string_view rest) {
        bool more = true;
        while (more) {
            const std::size_t nameEnd = std::min(rest.find_first_of("=,"), rest.size());
            const std::string_view name = rest.substr(0, nameEnd);
            if (name.empty()) fail("an argument is missing, ARGUMENT=VALUE");
            const Argument& argument = argumentNamed(name);
            if (nameEnd == rest.size() || rest[nameEnd] == ',') fail(std::string(name) + " has no value");
            rest.remove_prefix(nameEnd + 1);

            const bool takesAll = argument.kind == ArgumentKind::Texture;
            const std::size_t valueEnd = takesAll ? rest.size() : std::min(rest.find(','), rest.size());
            setValue(argument, rest.substr(0, valueEnd));
            more = valueEnd < rest.size();
            rest.remove_prefix(valueEnd + (more ? 1 : 0));
        }
    }

    void setValue(const Argument& argument, std::string_view text) {
        const auto place = static_cast<std::size_t>(&argument - arguments().data());
        std::optional<double>& number = m_step.values.numbers[place];
        if (number) fail(std::string(argument.name) + " is given twice");
        number = valueOf(argument, text);
        if (!number) fail(std::string(argument.name) + " must be " + requirementOf(argument));
        if (argument.kind == ArgumentKind::Texture) m_step.values.file = text;
    }

    void fillPresets() {
        for (std::size_t i = 0; i < arguments().size(); ++i) {
            const Argument& argument = arguments()[i];
            std::optional<double>& number = m_step.values.numbers[i];
            if (!number) number = argument.preset;
            if (!number && !argument.isOptional) {
                fail(std::string(argument.name) + " must be given, " + requirementOf(argument));
            }
        }
    }

    std::string_view m_text;
    Step m_step;
};

}  // namespace

Step parseStep(std::string_view text) {
    return StepReader(text).read();
}

}  // namespace mobrel::batch
