// SPDX-License-Identifier: MIT
#include "programs/batch/steps/FilterSteps.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>

#include "filters/FilterCall.hpp"
#include "programs/batch/steps/PictureFile.hpp"

namespace mobrel::batch {

namespace {

std::shared_ptr<const Document> readTexture(const std::string& path, const ReadOptions& reading) {
    auto texture = std::make_shared<Document>();
    readPictureFile(path, reading, *texture);
    return texture;
}

StepAction prepareFilter(int slot, const StepValues& values, const ReadOptions& reading) {
    FilterValues call;
    std::ranges::transform(values.numbers, call.values.begin(),
                           [](std::optional<double> number) { return number.value_or(0); });
    std::shared_ptr<const Document> texture;
    if (!values.file.empty()) {
        texture = readTexture(values.file, reading);
        call.texture = &texture->surface;
    }
    return [slot, call, texture](Document& document, cDIBFilter& filter) {
        document.dropPalette();
        callFilter(slot, filter, document.surface, call);
    };
}

StepKind filterStep(const FilterEntry& entry) {
    StepKind kind{entry.name, entry.meaning, {}, {}};
    std::ranges::transform(entry.arguments(), std::back_inserter(kind.arguments), stepArgument);
    kind.prepare = [slot = entry.slot](const StepValues& values, const ReadOptions& reading) {
        return prepareFilter(slot, values, reading);
    };
    return kind;
}

}  // namespace

std::vector<StepKind> filterSteps() {
    std::vector<StepKind> kinds;
    std::ranges::transform(kFilterCatalogue, std::back_inserter(kinds), filterStep);
    return kinds;
}

}  // namespace mobrel::batch
