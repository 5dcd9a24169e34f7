// SPDX-License-Identifier: MIT
#include "imaging/NearestByFullSearch.hpp"

#include <algorithm>

namespace mobrel {

namespace {

// A distance and the index behind it in one number: the least one is the answer, ties included. The
// largest distance, 3 x 255^2, leaves 8 bits free.
constexpr int kIndexBits = 8;

int squared(int difference) {
    return difference * difference;
}

/// Squared distances of one channel's levels to all entries, moved up by the bits of the index.
class LevelDistances {
 public:
    template <typename Channel>
    LevelDistances(const std::vector<RgbQuad>& entries, Channel channel) : m_count(entries.size()) {
        for (int level = 0; level < kCubeLevels; ++level) {
            for (const RgbQuad& entry : entries) {
                m_distances.push_back(squared(level * 17 - channel(entry)) << kIndexBits);
            }
        }
    }
    const std::int32_t* of(int level) const {
        return m_distances.data() + static_cast<std::size_t>(level) * m_count;
    }

 private:
    std::size_t m_count;
    std::vector<std::int32_t> m_distances;
};

}  // namespace

std::uint8_t NearestByFullSearch::index(std::uint8_t red, std::uint8_t green, std::uint8_t blue) const {
    std::int32_t best = INT32_MAX;
    std::int32_t position = 0;
    for (const RgbQuad& entry : m_entries) {
        const int distance =
            squared(red - entry.red) + squared(green - entry.green) + squared(blue - entry.blue);
        best = std::min(best, distance << kIndexBits | position++);
    }
    return static_cast<std::uint8_t>(best);
}

ColourCube NearestByFullSearch::cube() const {
    const std::size_t count = m_entries.size();
    const LevelDistances blue(m_entries, [](const RgbQuad& entry) { return entry.blue; });
    const LevelDistances green(m_entries, [](const RgbQuad& entry) { return entry.green; });
    const LevelDistances red(m_entries, [](const RgbQuad& entry) { return entry.red; });

    ColourCube cube{};
    std::size_t colour = 0;
    std::array<std::int32_t, 256> partial{};  // blue and green distance, and the index
    for (int b = 0; b < kCubeLevels; ++b) {
        for (int g = 0; g < kCubeLevels; ++g) {
            for (std::size_t i = 0; i < count; ++i) {
                partial[i] = (blue.of(b)[i] + green.of(g)[i]) | static_cast<std::int32_t>(i);
            }
            for (int r = 0; r < kCubeLevels; ++r) {
                const std::int32_t* redDistance = red.of(r);
                std::int32_t best = INT32_MAX;
                for (std::size_t i = 0; i < count; ++i) best = std::min(best, partial[i] + redDistance[i]);
                cube[colour++] = static_cast<std::uint8_t>(best);
            }
        }
    }
    return cube;
}

}  // namespace mobrel
