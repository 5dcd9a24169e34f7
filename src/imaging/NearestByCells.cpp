// SPDX-License-Identifier: MIT
#include "imaging/NearestByCells.hpp"

#include <algorithm>
#include <array>

namespace mobrel {

namespace {

int squared(int difference) {
    return difference * difference;
}

int distance(const RgbQuad& a, const RgbQuad& b) {
    return squared(a.blue - b.blue) + squared(a.green - b.green) + squared(a.red - b.red);
}

/// The least and the greatest squared distance of a value to a stretch of levels.
struct Reach {
    int least;
    int greatest;
};

Reach reachTo(int value, int low, int high) {
    const int outside = std::max({low - value, 0, value - high});
    return {squared(outside), squared(std::max(value - low, high - value))};
}

}  // namespace

NearestByCells::NearestByCells(std::span<const RgbQuad> entries)
    : m_entries(entries.begin(), entries.end()), m_cells(kCellsASide * kCellsASide * kCellsASide) {}

std::uint8_t NearestByCells::index(const RgbQuad& colour) {
    const auto part = [](std::uint8_t component) { return std::size_t{component} >> kCellBits; };
    Cell& cell =
        m_cells[(part(colour.red) * kCellsASide + part(colour.green)) * kCellsASide + part(colour.blue)];
    if (cell.count == 0) fill(cell, colour);
    const RgbQuad* best = m_candidates.data() + cell.first;
    int least = distance(colour, *best);
    for (const RgbQuad* other = best + 1; other < m_candidates.data() + cell.first + cell.count; ++other) {
        const int far = distance(colour, *other);
        if (far < least) {
            least = far;
            best = other;
        }
    }
    return best->reserved;
}

/// An entry can be nearest somewhere in the cell unless another is nearer everywhere: its nearest corner
/// must not lie beyond some entry's farthest one.
void NearestByCells::fill(Cell& cell, const RgbQuad& colour) {
    std::array<int, 256> leasts{};
    int bound = INT32_MAX;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const auto reach = [](int value, int component) {
            const int low = component / kCellSide * kCellSide;
            return reachTo(value, low, low + kCellSide - 1);
        };
        const Reach blue = reach(m_entries[i].blue, colour.blue);
        const Reach green = reach(m_entries[i].green, colour.green);
        const Reach red = reach(m_entries[i].red, colour.red);
        leasts[i] = blue.least + green.least + red.least;
        bound = std::min(bound, blue.greatest + green.greatest + red.greatest);
    }
    cell.first = static_cast<std::uint32_t>(m_candidates.size());
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        if (leasts[i] > bound) continue;
        m_candidates.push_back(m_entries[i]);
        m_candidates.back().reserved = static_cast<std::uint8_t>(i);
    }
    cell.count = static_cast<std::uint32_t>(m_candidates.size()) - cell.first;
}

}  // namespace mobrel
