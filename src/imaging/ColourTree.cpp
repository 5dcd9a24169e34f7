// SPDX-License-Identifier: MIT
#include "imaging/ColourTree.hpp"

#include <algorithm>
#include <utility>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kFirstNodes = 50;

std::uint8_t meanByte(std::int32_t sum, std::int32_t count) {
    return toByte(roundInt(static_cast<double>(sum) / count));
}

}  // namespace

ColourTree::ColourTree(int nLevels, float redWeight, float greenWeight, float blueWeight)
    : m_levels(nLevels),
      m_redPath(pathOf(redWeight)),
      m_greenPath(pathOf(greenWeight)),
      m_bluePath(pathOf(blueWeight)),
      m_nodes(kFirstNodes + 1) {
    if (nLevels < 1 || nLevels > kMostLevels) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

/// A component's way through the ranges depends on itself alone, so it is walked once per value.
ColourTree::Path ColourTree::pathOf(float weight) {
    Path path{};
    for (int value = 0; value < 256; ++value) {
        const float weighted = static_cast<float>(value) * weight;
        int least = 0;
        int greatest = 255;
        int bits = 0;
        for (int level = 0; level < kMostLevels; ++level) {
            const int middle = roundInt(least / 2.0 + greatest / 2.0);
            const bool isAbove = weighted > static_cast<float>(middle);
            (isAbove ? least : greatest) = middle;
            bits = bits << 1 | static_cast<int>(isAbove);
        }
        path[static_cast<std::size_t>(value)] = static_cast<std::uint8_t>(bits);
    }
    return path;
}

void ColourTree::add(const cDIB& DIB, int mostColours) {
    if (DIB.hDIB() == nullptr) return;
    for (int y = 0; y < DIB.Height(); ++y) {
        const std::uint8_t* pixel = DIB.hDIB()->row(y);
        for (int x = 0; x < DIB.Width(); ++x, pixel += 4) {
            addPixel(pixel);
            while (m_colours > mostColours && mergeOne()) {
            }
        }
    }
}

void ColourTree::addPixel(const std::uint8_t* pixel) {
    const int red = m_redPath[pixel[2]];
    const int green = m_greenPath[pixel[1]];
    const int blue = m_bluePath[pixel[0]];
    NodeNumber number = 1;
    for (int level = 1;; ++level) {
        const int shift = kMostLevels - level;
        const auto place = static_cast<std::size_t>((red >> shift & 1) | (green >> shift & 1) << 1 |
                                                    (blue >> shift & 1) << 2);
        NodeNumber child = node(number).children[place];
        if (child == 0) {
            child = takeNode();
            node(number).children[place] = child;
            ++node(number).pixelCount;
            Node& made = node(child);
            made.isLeaf = level == m_levels;
            made.next = made.pixelCount = 0;
            made.sums.fill(0);
        }
        Node& entered = node(child);
        if (entered.isLeaf) {
            if (entered.pixelCount == 0) ++m_colours;
            ++entered.pixelCount;
            for (std::int32_t& sum : entered.sums) sum = wrapAdd(sum, *pixel++);
            return;
        }
        if (!entered.inReducibleList) {
            NodeNumber& head = m_reducible[static_cast<std::size_t>(level)];
            entered.next = std::exchange(head, child);
            entered.inReducibleList = true;
        }
        number = child;
    }
}

/// Makes a leaf of the deepest node that was entered last. False when no node can be merged.
bool ColourTree::mergeOne() {
    auto level = static_cast<std::size_t>(m_levels);
    while (level > 0 && m_reducible[level] == 0) --level;
    if (level == 0) return false;
    const NodeNumber number = m_reducible[level];
    Node& merged = node(number);
    m_reducible[level] = merged.next;

    merged.pixelCount = 0;
    merged.sums.fill(0);
    for (NodeNumber& place : merged.children) {
        const NodeNumber child = std::exchange(place, 0);
        if (child == 0) continue;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            merged.sums[channel] = wrapAdd(merged.sums[channel], node(child).sums[channel]);
        }
        merged.pixelCount = wrapAdd(merged.pixelCount, node(child).pixelCount);
        releaseNode(child);
        --m_colours;
    }
    ++m_colours;
    merged.isLeaf = true;
    return true;
}

void ColourTree::releaseNode(NodeNumber number) {
    Node& released = node(number);
    released.next = std::exchange(m_freeHead, number);
    released.isLeaf = false;
    released.inReducibleList = false;
    --m_nodeCount;
}

ColourTree::NodeNumber ColourTree::takeNode() {
    ++m_nodeCount;
    if (m_freeHead != 0) {
        const NodeNumber number = m_freeHead;
        m_freeHead = node(number).next;
        node(number).children.fill(0);
        return number;
    }
    // kept: how far the array reaches decides how nodes of equal count are sorted
    const auto needed = static_cast<std::size_t>(m_nodeCount);
    if (needed >= m_nodes.size()) m_nodes.resize(static_cast<std::size_t>(roundInt(m_nodeCount * 1.1)) + 1);
    return m_nodeCount;
}

/// The exchange sort runs over counts and numbers alone; the records themselves stay where they are.
std::vector<RgbQuad> ColourTree::coloursByPopularity() {
    std::vector<std::pair<std::int32_t, NodeNumber>> order;
    for (std::size_t i = 1; i < m_nodes.size(); ++i) {
        order.emplace_back(m_nodes[i].pixelCount, static_cast<NodeNumber>(i));
    }
    for (std::size_t i = 0; i + 1 < order.size(); ++i) {
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            if (order[i].first < order[j].first) std::swap(order[i], order[j]);
        }
    }
    std::vector<RgbQuad> colours;
    for (const auto& [count, number] : order) {
        const Node& leaf = node(number);
        if (!leaf.isLeaf) continue;
        const auto& [blue, green, red] = leaf.sums;
        colours.push_back({meanByte(blue, count), meanByte(green, count), meanByte(red, count), 0});
    }
    return colours;
}

}  // namespace mobrel
