// SPDX-License-Identifier: MIT
#include "imaging/GifReduction.hpp"

#include <array>
#include <cstddef>
#include <new>
#include <optional>
#include <unordered_map>
#include <utility>

#include "imaging/FittedPalette.hpp"
#include "imaging/NearestByCells.hpp"
#include "imaging/diffusion/SerpentineFloydSteinberg.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kMostColours = 256;
constexpr std::size_t kPixelBytes = 4;

using Colour = std::array<std::int32_t, 3>;  // blue, green, red

std::size_t pixelCount(const cDIB& DIB) {
    return static_cast<std::size_t>(DIB.Width()) * static_cast<std::size_t>(DIB.Height());
}

/// Gives each colour that comes an index, as long as there are few.
class OwnColours {
 public:
    /// The index; nothing when this would be one colour too many.
    std::optional<std::uint8_t> add(const RgbQuad& colour) {
        const auto key = static_cast<std::uint32_t>(colour.blue | colour.green << 8 | colour.red << 16);
        if (key == m_lastKey) return m_lastIndex;
        const auto found = m_indices.find(key);
        if (found == m_indices.end() && m_table.size() == kMostColours) return std::nullopt;
        m_lastKey = key;
        if (found == m_indices.end()) {
            m_lastIndex = static_cast<std::uint8_t>(m_table.size());
            m_indices.emplace(key, m_lastIndex);
            m_table.push_back(colour);
        } else {
            m_lastIndex = found->second;
        }
        return m_lastIndex;
    }

    const std::vector<RgbQuad>& table() const { return m_table; }

 private:
    std::vector<RgbQuad> m_table;
    std::unordered_map<std::uint32_t, std::uint8_t> m_indices;
    std::uint32_t m_lastKey = UINT32_MAX;  // no colour has it
    std::uint8_t m_lastIndex = 0;
};

std::optional<ReducedPicture> withOwnColours(const cDIB& DIB) {
    ReducedPicture picture;
    OwnColours colours;
    for (int y = 0; y < DIB.Height(); ++y) {
        const std::uint8_t* pixel = DIB.hDIBDC()->line(y);
        for (int x = 0; x < DIB.Width(); ++x, pixel += kPixelBytes) {
            const auto index = colours.add({pixel[0], pixel[1], pixel[2], 0});
            if (!index) return std::nullopt;
            picture.indices.push_back(*index);
        }
    }
    picture.colorTable = colours.table();
    return picture;
}

/// Moves each entry to the mean of the copy's pixels that are nearest to it; one that has none stays.
void moveToMeans(std::vector<RgbQuad>& table, const cDIB& copy) {
    struct Sum {
        Colour colour{};
        std::int32_t count = 0;
    };
    std::vector<Sum> sums(table.size());
    NearestByCells nearest(table);
    const std::uint8_t* pixel = copy.DIBitsPtr();
    for (std::size_t i = 0; i < pixelCount(copy); ++i, pixel += kPixelBytes) {
        Sum& sum = sums[nearest.index({pixel[0], pixel[1], pixel[2], 0})];
        for (std::size_t channel = 0; channel < 3; ++channel) sum.colour[channel] += pixel[channel];
        ++sum.count;
    }
    for (std::size_t i = 0; i < table.size(); ++i) {
        const Colour& colour = sums[i].colour;
        const std::int32_t count = sums[i].count;
        if (count == 0) continue;
        const auto mean = [&](std::size_t channel) { return toByte((colour[channel] + count / 2) / count); };
        table[i] = {mean(0), mean(1), mean(2), 0};
    }
}

/// The tree's palette, then a few rounds of moving its entries to where their pixels are.
std::vector<RgbQuad> fittedTable(const cDIB& DIB) {
    constexpr int kRounds = 6;
    cDIB copy;
    copyForPalette(copy, DIB);
    if (copy.hDIB() == nullptr) throw std::bad_alloc();
    cDIBPal palette;
    createFitted256(palette, copy);
    std::vector<RgbQuad> table(palette.PalettePtr(), palette.PalettePtr() + palette.Count());
    for (int round = 0; round < kRounds; ++round) moveToMeans(table, copy);
    return table;
}

}  // namespace

ReducedPicture reduceForGif(const cDIB& DIB) {
    if (std::optional<ReducedPicture> own = withOwnColours(DIB)) return *std::move(own);
    ReducedPicture picture;
    picture.colorTable = fittedTable(DIB);
    picture.indices = diffuseSerpentine(DIB, picture.colorTable);
    return picture;
}

}  // namespace mobrel
