// SPDX-License-Identifier: MIT
#include "programs/batch/StepKinds.hpp"

#include <algorithm>
#include <memory>
#include <optional>

#include "filters/FilterCall.hpp"
#include "programs/batch/PictureFile.hpp"

namespace mobrel::batch {

namespace {

std::shared_ptr<const Document> readTexture(const std::string& path) {
    auto texture = std::make_shared<Document>();
    readPictureFile(path, std::nullopt, *texture);
    return texture;
}

StepAction prepareFilter(int slot, const StepValues& values) {
    FilterValues call;
    std::ranges::copy(values.numbers, call.values.begin());
    std::shared_ptr<const Document> texture;
    if (!values.file.empty()) {
        texture = readTexture(values.file);
        call.texture = &texture->surface;
    }
    return [slot, call, texture](Document& document, cDIBFilter& filter) {
        document.dropPalette();
        callFilter(slot, filter, document.surface, call);
    };
}

StepKind filterKind(const FilterEntry& entry) {
    return {entry.name, entry.meaning, entry.arguments(),
            [slot = entry.slot](const StepValues& values) { return prepareFilter(slot, values); }};
}

std::vector<StepKind> makeKinds() {
    std::vector<StepKind> kinds;
    kinds.reserve(kFilterCatalogue.size());
    for (const FilterEntry& entry : kFilterCatalogue) kinds.push_back(filterKind(entry));
    return kinds;
}

}  // namespace

std::span<const StepKind> stepKinds() {
    static const std::vector<StepKind> kinds = makeKinds();
    return kinds;
}

}  // namespace mobrel::batch
