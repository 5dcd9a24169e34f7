// SPDX-License-Identifier: MIT
// The builders of palettes and the two questions asked of one.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "support/PaletteRecipes.hpp"
#include "support/RecipeNumbers.hpp"

namespace mobrel::recipes {
namespace {

using test::kBlue;
using test::kGreen;
using test::kRed;
using test::Pixel;

Palette blackEntries(std::int32_t count) {
    return {std::vector<Entry>(static_cast<std::size_t>(count), Entry{0, 0, 0, 0})};
}

void setEntry(Palette& palette, int index, int red, int green, int blue) {
    palette.entries.at(static_cast<std::size_t>(index)) = {byteOf(blue), byteOf(green), byteOf(red), 0};
}

void setLowBlock(Palette& palette, int base) {
    setEntry(palette, base + 0, 0, 0, 0);
    setEntry(palette, base + 1, 128, 0, 0);
    setEntry(palette, base + 2, 0, 128, 0);
    setEntry(palette, base + 3, 128, 128, 0);
    setEntry(palette, base + 4, 0, 0, 128);
    setEntry(palette, base + 5, 128, 0, 128);
    setEntry(palette, base + 6, 0, 128, 128);
    setEntry(palette, base + 7, 192, 192, 192);
}

void setHighBlock(Palette& palette, int base) {
    setEntry(palette, base + 0, 128, 128, 128);
    setEntry(palette, base + 1, 255, 0, 0);
    setEntry(palette, base + 2, 0, 255, 0);
    setEntry(palette, base + 3, 255, 255, 0);
    setEntry(palette, base + 4, 0, 0, 255);
    setEntry(palette, base + 5, 255, 0, 255);
    setEntry(palette, base + 6, 0, 255, 255);
    setEntry(palette, base + 7, 255, 255, 255);
}

bool isCubeCorner(int red, int green, int blue) {
    const int zeros = int{red == 0} + int{green == 0} + int{blue == 0};
    const int sum = red + green + blue;
    return sum == 0 || sum == 765 || (sum == 510 && zeros >= 1) || (sum == 255 && zeros == 2);
}

Palette entriesFromPixels(const Picture& picture) {
    Palette palette;
    for (const Pixel& pixel : picture.pixels) palette.entries.push_back(pixel);
    return palette;
}

/// Red, green, blue.
constexpr std::size_t kColorChannels = 3;

struct Range {
    int min = 0;
    int max = 0;
};

using ColorRanges = std::array<Range, kColorChannels>;

struct Color {
    std::int32_t red = 0;
    std::int32_t green = 0;
    std::int32_t blue = 0;
};

struct Node {
    bool IsLeaf = false;
    bool InReducibleList = false;
    Color Sum;
    std::int32_t PixelCount = 0;
    std::array<int, 8> Children{};
    int Next = 0;
};

void addTo(Color& sum, const Color& more) {
    sum.red = wrap(std::int64_t{sum.red} + more.red);
    sum.green = wrap(std::int64_t{sum.green} + more.green);
    sum.blue = wrap(std::int64_t{sum.blue} + more.blue);
}

/// Nodes are numbered from 1, which is the root; 0 is no node.
class ColorTree {
 public:
    ColorTree(int nLevels, float RWeight, float GWeight, float BWeight)
        : m_levels(nLevels), m_weights{RWeight, GWeight, BWeight}, m_nodes(kFirstUpperBound + 1) {}

    int presentColors() const { return m_presentColors; }

    void add(const Color& color) { addColor(1, 1, ColorRanges{{{0, 255}, {0, 255}, {0, 255}}}, color); }

    /// False when there is nothing to merge.
    bool mergeOne() {
        int level = m_levels;
        while (level >= 1 && list(level) == 0) --level;
        if (level < 1) return false;
        const int number = list(level);
        list(level) = node(number).Next;

        Color sum;
        std::int32_t pixelCount = 0;
        for (int& child : node(number).Children) {
            if (child == 0) continue;
            addTo(sum, node(child).Sum);
            pixelCount = wrap(std::int64_t{pixelCount} + node(child).PixelCount);
            release(child);
            --m_presentColors;
            child = 0;
        }
        ++m_presentColors;
        node(number).Sum = sum;
        node(number).PixelCount = pixelCount;
        node(number).IsLeaf = true;
        return true;
    }

    /// Moves the records, free ones too, by falling count; numbers of nodes mean nothing afterwards.
    void sortByCount() {
        const int last = upperBound();
        for (int i = 1; i <= last - 1; ++i) {
            for (int j = i; j <= last; ++j) {
                if (node(i).PixelCount < node(j).PixelCount) std::swap(node(i), node(j));
            }
        }
    }

    std::vector<Node> leaves() {
        std::vector<Node> found;
        for (int i = 1; i <= upperBound(); ++i) {
            if (node(i).IsLeaf) found.push_back(node(i));
        }
        return found;
    }

 private:
    static constexpr int kFirstUpperBound = 50;

    int upperBound() const { return static_cast<int>(m_nodes.size()) - 1; }
    Node& node(int number) { return m_nodes.at(static_cast<std::size_t>(number)); }

    int& list(int level) {
        if (level < 1 || level > 8) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        return m_lists.at(static_cast<std::size_t>(level));
    }

    void addColor(int number, int level, ColorRanges ranges, const Color& color) {
        const std::array<std::int32_t, kColorChannels> components = {color.red, color.green, color.blue};
        std::size_t place = 0;
        for (std::size_t c = 0; c < kColorChannels; ++c) {
            const int mid = rounded(ranges[c].min / 2.0 + ranges[c].max / 2.0);
            const float t = static_cast<float>(components[c]) * m_weights[c];
            if (t > static_cast<float>(mid)) {
                place += std::size_t{1} << c;
                ranges[c].min = mid;
            } else {
                ranges[c].max = mid;
            }
        }

        int child = node(number).Children[place];
        if (child == 0) {
            child = take();
            node(number).Children[place] = child;
            ++node(number).PixelCount;
            node(child).IsLeaf = level == m_levels;
            node(child).Next = 0;
            node(child).PixelCount = 0;
            node(child).Sum = {};
        }

        if (!node(child).IsLeaf) {
            if (!node(child).InReducibleList) {
                node(child).Next = list(level);
                list(level) = child;
                node(child).InReducibleList = true;
            }
            addColor(child, level + 1, ranges, color);
        } else {
            if (node(child).PixelCount == 0) ++m_presentColors;
            ++node(child).PixelCount;
            addTo(node(child).Sum, color);
        }
    }

    void release(int number) {
        node(number).Next = m_free;
        m_free = number;
        node(number).IsLeaf = false;
        node(number).InReducibleList = false;
        --m_nodeCount;
    }

    int take() {
        ++m_nodeCount;
        if (m_free != 0) {
            const int number = m_free;
            m_free = node(number).Next;
            node(number).Children = {};
            return number;
        }
        if (m_nodeCount > upperBound()) {
            m_nodes.resize(static_cast<std::size_t>(rounded(m_nodeCount * 1.1)) + 1);
        }
        return m_nodeCount;
    }

    int m_levels;
    std::array<float, kColorChannels> m_weights;
    std::vector<Node> m_nodes;
    std::array<int, 9> m_lists{};  // place 0 is not used
    int m_nodeCount = 1;
    int m_free = 0;
    int m_presentColors = 0;
};

std::uint8_t meanOf(std::int32_t sum, std::int32_t count) {
    return byteOf(rounded(static_cast<double>(sum) / count));
}

}  // namespace

Palette createBlackAndWhite() {
    Palette palette = blackEntries(2);
    setEntry(palette, 1, 255, 255, 255);
    return palette;
}

Palette createEGA() {
    Palette palette = blackEntries(16);
    setLowBlock(palette, 0);
    setHighBlock(palette, 8);
    return palette;
}

Palette createHalftone() {
    const std::array<int, 5> levels = {0, 64, 128, 192, 255};
    Palette palette = blackEntries(256);
    for (int bi = 0; bi < 5; ++bi) {
        for (int gi = 0; gi < 5; ++gi) {
            for (int ri = 0; ri < 5; ++ri) {
                setEntry(palette, 25 * bi + 5 * gi + ri, levels[static_cast<std::size_t>(ri)],
                         levels[static_cast<std::size_t>(gi)], levels[static_cast<std::size_t>(bi)]);
            }
        }
    }
    return palette;
}

Palette createWebsafe() {
    Palette palette = blackEntries(256);
    setLowBlock(palette, 0);
    setHighBlock(palette, 248);
    int index = 8;
    for (int blue = 0; blue <= 255; blue += 51) {
        for (int green = 0; green <= 255; green += 51) {
            for (int red = 0; red <= 255; red += 51) {
                if (!isCubeCorner(red, green, blue)) setEntry(palette, index++, red, green, blue);
            }
        }
    }
    for (int i = 217; i <= 247; ++i) {
        const int grey = (i - 216) * 8;
        setEntry(palette, i, grey, grey, grey);
    }
    return palette;
}

Palette createGreys016() {
    Palette palette = blackEntries(16);
    for (int i = 0; i <= 15; ++i) setEntry(palette, i, i * 17, i * 17, i * 17);
    return palette;
}

Palette createGreys256() {
    Palette palette = blackEntries(256);
    for (int i = 0; i <= 255; ++i) setEntry(palette, i, i, i, i);
    return palette;
}

Palette createFastOptimal016(const Picture& D) {
    return entriesFromPixels(stretched(D, 4, 4));
}

Palette createFastOptimal256(const Picture& D) {
    return entriesFromPixels(stretched(D, 16, 16));
}

Palette createOptimal(const Picture& D, std::int32_t PalSize, int nLevels, float RWeight, float GWeight,
                      float BWeight) {
    ColorTree tree(nLevels, RWeight, GWeight, BWeight);
    for (int y = 0; y <= D.height - 1 && !D.isEmpty(); ++y) {
        for (int x = 0; x <= D.width - 1; ++x) {
            tree.add({D.sample(x, y, kRed), D.sample(x, y, kGreen), D.sample(x, y, kBlue)});
            while (tree.presentColors() > PalSize) {
                if (!tree.mergeOne()) break;
            }
        }
    }
    tree.sortByCount();
    Palette palette = blackEntries(PalSize);
    int index = 0;
    for (const Node& leaf : tree.leaves()) {
        if (index >= PalSize) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        setEntry(palette, index++, meanOf(leaf.Sum.red, leaf.PixelCount),
                 meanOf(leaf.Sum.green, leaf.PixelCount), meanOf(leaf.Sum.blue, leaf.PixelCount));
    }
    return palette;
}

std::uint8_t closestColor(const Palette& palette, int R, int G, int B) {
    std::size_t nearest = 0;
    int least = -1;
    for (std::size_t i = 0; i < palette.entries.size(); ++i) {
        const Entry& entry = palette.entries[i];
        const int red = entry[kRed] - R;
        const int green = entry[kGreen] - G;
        const int blue = entry[kBlue] - B;
        const int distance = red * red + green * green + blue * blue;
        if (least == -1 || distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return static_cast<std::uint8_t>(nearest);
}

bool isGreyScale(const Palette& palette) {
    const auto isGrey = [](const Entry& entry) {
        return entry[kRed] == entry[kGreen] && entry[kGreen] == entry[kBlue];
    };
    return !palette.entries.empty() && std::all_of(palette.entries.begin(), palette.entries.end(), isGrey);
}

Picture stretched(const Picture& D, int width, int height) {
    Picture result(width, height);
    if (D.isEmpty()) return result;
    for (int line = 0; line <= height - 1; ++line) {
        for (int x = 0; x <= width - 1; ++x) {
            const int sourceX = quotient((2 * x + 1) * D.width - 1, 2 * width);
            const int sourceLine = quotient((2 * line + 1) * D.height - 1, 2 * height);
            result.at(x, height - 1 - line) = D.at(sourceX, D.height - 1 - sourceLine);
        }
    }
    return result;
}

}  // namespace mobrel::recipes
