// SPDX-License-Identifier: MIT
// Prints the catalogue of filters as JSON, for checks of what is written about it.
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>

#include "filters/FilterCatalogue.hpp"
#include "platform/base/JsonText.hpp"
#include "platform/base/NumberText.hpp"

namespace {

using namespace mobrel;

const char* nameOf(ArgumentKind kind) {
    switch (kind) {
        case ArgumentKind::Integer:
            return "integer";
        case ArgumentKind::Float:
            return "float";
        case ArgumentKind::Boolean:
            return "boolean";
        case ArgumentKind::Rgb:
            return "colour";
        case ArgumentKind::Choice:
            return "choice";
        case ArgumentKind::Texture:
            break;
    }
    return "texture";
}

const char* nameOf(Border border) {
    return border == Border::Spared ? "spared" : "changed";
}

const char* nameOf(Cadence cadence) {
    switch (cadence) {
        case Cadence::EachRow:
            return "each row";
        case Cadence::HalfRows:
            return "half rows";
        case Cadence::QuarterRows:
            return "quarter rows";
        case Cadence::EachStep:
            break;
    }
    return "each step";
}

std::string numberOrNull(const std::optional<double>& value) {
    return value ? textOf(*value) : "null";
}

std::string jsonOf(const Argument& argument) {
    return "{\"name\": " + jsonString(argument.name) + ", \"kind\": " + jsonString(nameOf(argument.kind)) +
           ", \"least\": " + textOf(argument.least) + ", \"greatest\": " + textOf(argument.greatest) +
           ", \"preset\": " + numberOrNull(argument.preset) +
           ", \"except\": " + numberOrNull(argument.except) + "}";
}

std::string jsonOf(std::size_t slot, const FilterEntry& entry) {
    std::string arguments;
    for (const Argument& argument : entry.arguments()) {
        if (!arguments.empty()) arguments += ", ";
        arguments += jsonOf(argument);
    }
    return "{\"slot\": " + std::to_string(slot) + ", \"name\": " + jsonString(entry.name) +
           ", \"border\": " + jsonString(nameOf(entry.border)) +
           ", \"progress\": " + jsonString(nameOf(entry.cadence)) + ", \"arguments\": [" + arguments + "]}";
}

}  // namespace

int main() {
    std::string list;
    for (std::size_t i = 0; i < kFilterCount; ++i) {
        if (!list.empty()) list += ",\n ";
        list += jsonOf(i + 1, kFilterCatalogue[i]);
    }
    std::printf("[%s]\n", list.c_str());
    return 0;
}
