// SPDX-License-Identifier: MIT
#include "programs/batch/run/StepList.hpp"

#include <cstddef>
#include <string_view>

#include "programs/batch/steps/ArgumentText.hpp"
#include "programs/batch/steps/StepKinds.hpp"

namespace mobrel::batch {

namespace {

constexpr std::size_t kMeaningColumn = 26;

// The left part filled up to the column of the right one.
std::string listLine(std::string left, std::string_view right) {
    left.resize(left.size() < kMeaningColumn ? kMeaningColumn : left.size() + 1, ' ');
    left += right;
    left += '\n';
    return left;
}

std::string argumentLine(const Argument& argument) {
    std::string left = "    " + std::string(argument.name);
    std::string right = requirementOf(argument);
    if (argument.preset) {
        left += "=" + valueText(argument, *argument.preset);
    } else if (!argument.isOptional) {
        right += "; must be given";
    }
    return listLine(std::move(left), right);
}

}  // namespace

std::string stepList() {
    std::string list;
    for (const StepKind& kind : stepKinds()) {
        list += listLine(std::string(kind.name), kind.meaning);
        for (const Argument& argument : kind.arguments) list += argumentLine(argument);
    }
    return list;
}

}  // namespace mobrel::batch
