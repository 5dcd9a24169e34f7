// SPDX-License-Identifier: MIT
// What a stretch does along one axis.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace mobrel {

/// One side of a rectangle, and the extent of its surface along that side.
struct Side {
    std::int64_t origin;
    std::int64_t size;
    int extent;

    std::int64_t length() const { return size < 0 ? -size : size; }
    /// The place of the rectangle's pixel d; a negative size counts downwards.
    std::int64_t place(std::int64_t d) const { return size < 0 ? origin - d : origin + d; }
    std::int64_t lowest() const { return size < 0 ? origin + size + 1 : origin; }
};

/// Target pixel first + i takes source pixel sources[i].
struct AxisMap {
    int first = 0;
    std::vector<int> sources;

    bool empty() const { return sources.empty(); }
    std::size_t bytes() const { return sources.size() * 4; }
    bool isReversed() const { return sources.front() > sources.back(); }
    int lowestSource() const { return std::min(sources.front(), sources.back()); }
    int highestSource() const { return std::max(sources.front(), sources.back()); }
};

/// The mapping of the whole sides, pixel d to ((2d + 1) s - 1) div (2w), then cut to the pixels that both
/// surfaces have. The mapping is monotone, so what is left is one run.
AxisMap mapAxis(const Side& target, const Side& source);

/// True when each pixel's source is so many behind that of the one before.
bool hasStep(const AxisMap& map, int step);

/// A whole-number enlargement: behind the first `before` target pixels, `whole` source pixels in a row are
/// taken `times` times each.
struct Repetition {
    std::size_t before;
    std::size_t times;
    std::size_t whole;
};

/// Nothing where the map is not one.
std::optional<Repetition> repetitionOf(const AxisMap& map);

}  // namespace mobrel
