// SPDX-License-Identifier: MIT
// Runs an operation of the catalogue on a plain picture.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "platform/base/RuntimeError.hpp"
#include "support/EventLog.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::test {

/// As in ArgumentValues.
using Values = std::array<double, kMostArguments>;

/// std::invalid_argument for a name that no operation has.
inline const FilterEntry& entryOf(std::string_view name) {
    const auto* const entry = std::ranges::find(kFilterCatalogue, name, &FilterEntry::name);
    if (entry == kFilterCatalogue.end()) throw std::invalid_argument(std::string(name));
    return *entry;
}

struct FilterOutcome {
    Picture picture;
    std::string events;
    std::optional<ErrorNumber> error;
};

inline FilterOutcome outcomeOf(const FilterEntry& entry, const Values& values, const Picture& texture,
                               const Picture& picture) {
    cDIB textureSurface;
    toSurface(texture, textureSurface);
    cDIB surface;
    toSurface(picture, surface);
    RandomSource random;
    cDIBFilter filter(random);
    EventLog log;
    log.attach(filter);
    std::optional<ErrorNumber> error;
    try {
        entry.apply(filter, surface, {values, &textureSurface});
    } catch (const RuntimeError& thrown) {
        error = thrown.number();
    }
    return {fromSurface(surface), log.toString(), error};
}

/// Noise.
inline Picture textureOf(int width, int height) {
    return sweepPictures({width, height}).front().picture;
}

/// The presets, and 0 where there is none.
inline Values presetsOf(const FilterEntry& entry) {
    Values values{};
    std::size_t i = 0;
    for (const Argument& argument : entry.arguments()) values[i++] = argument.preset.value_or(0);
    return values;
}

inline std::string callText(const FilterEntry& entry, const Values& values) {
    std::string text(entry.name);
    for (std::size_t i = 0; i < entry.argumentCount; ++i) text += ' ' + std::to_string(values[i]);
    return text;
}

/// All sweep pictures of a few sizes.
inline std::vector<Picture> lawPictures() {
    std::vector<Picture> pictures;
    for (const PictureSize size : {PictureSize{1, 1}, {2, 5}, {4, 4}, {9, 7}}) {
        for (const auto& named : sweepPictures(size)) pictures.push_back(named.picture);
    }
    return pictures;
}

}  // namespace mobrel::test
