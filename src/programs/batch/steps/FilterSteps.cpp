// SPDX-License-Identifier: MIT
#include "programs/batch/steps/FilterSteps.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>

#include "filters/FilterCatalogue.hpp"
#include "programs/batch/steps/PictureFile.hpp"

namespace mobrel::batch {

namespace {

StepAction prepareFilter(const FilterEntry& entry, const StepValues& values, const ReadOptions& reading) {
    ArgumentValues call;
    std::ranges::transform(values.numbers, call.numbers.begin(),
                           [](std::optional<double> number) { return number.value_or(0); });
    std::shared_ptr<Document> texture;
    if (!values.file.empty()) {
        texture = std::make_shared<Document>();
        readPictureFile(values.file, reading, *texture);
        call.texture = &texture->surface;
    }
    return [apply = entry.apply, call, texture](Document& document, cDIBFilter& filter) {
        document.dropPalette();
        apply(filter, document.surface, call);
    };
}

StepKind filterStep(const FilterEntry& entry) {
    const auto arguments = entry.arguments();
    return {entry.name,
            entry.meaning,
            {arguments.begin(), arguments.end()},
            [&entry](const StepValues& values, const ReadOptions& reading) {
                return prepareFilter(entry, values, reading);
            }};
}

}  // namespace

std::vector<StepKind> filterSteps() {
    std::vector<StepKind> kinds;
    std::ranges::transform(kFilterCatalogue, std::back_inserter(kinds), filterStep);
    return kinds;
}

}  // namespace mobrel::batch
