// SPDX-License-Identifier: MIT
// Prints the catalogue of filters as JSON, for checks of what is written about it.
#include <array>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "filters/FilterCatalogue.hpp"

namespace {

using namespace mobrel;

std::string quoted(std::string_view text) {
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') json += '\\';
        json += c;
    }
    return json + '"';
}

std::string textOf(double number) {
    std::array<char, 32> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr};
}

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

std::string jsonOf(const FilterArgument& argument) {
    return "{\"name\": " + quoted(argument.name) + ", \"kind\": " + quoted(nameOf(argument.kind)) +
           ", \"least\": " + textOf(argument.least) + ", \"greatest\": " + textOf(argument.greatest) +
           ", \"preset\": " + numberOrNull(argument.preset) +
           ", \"except\": " + numberOrNull(argument.except) + "}";
}

std::string jsonOf(const FilterEntry& entry) {
    std::string arguments;
    for (const FilterArgument& argument : entry.arguments()) {
        if (!arguments.empty()) arguments += ", ";
        arguments += jsonOf(argument);
    }
    return "{\"slot\": " + std::to_string(entry.slot) + ", \"name\": " + quoted(entry.name) +
           ", \"border\": " + quoted(nameOf(entry.border)) +
           ", \"progress\": " + quoted(nameOf(entry.cadence)) + ", \"arguments\": [" + arguments + "]}";
}

}  // namespace

int main() {
    std::string list;
    for (const FilterEntry& entry : kFilterCatalogue) {
        if (!list.empty()) list += ",\n ";
        list += jsonOf(entry);
    }
    std::printf("[%s]\n", list.c_str());
    return 0;
}
