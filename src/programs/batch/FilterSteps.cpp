// SPDX-License-Identifier: MIT
#include "programs/batch/FilterSteps.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>

#include "filters/FilterCall.hpp"
#include "programs/batch/PictureFile.hpp"

namespace mobrel::batch {

namespace {

std::shared_ptr<const Document> readTexture(const std::string& path, std::optional<std::uint64_t> maxPixels) {
    auto texture = std::make_shared<Document>();
    readPictureFile(path, maxPixels, *texture);
    return texture;
}

StepAction prepareFilter(int slot, const StepValues& values, std::optional<std::uint64_t> maxPixels) {
    FilterValues call;
    std::ranges::copy(values.numbers, call.values.begin());
    std::shared_ptr<const Document> texture;
    if (!values.file.empty()) {
        texture = readTexture(values.file, maxPixels);
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
    kind.prepare = [slot = entry.slot](const StepValues& values, std::optional<std::uint64_t> maxPixels) {
        return prepareFilter(slot, values, maxPixels);
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
