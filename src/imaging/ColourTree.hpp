// SPDX-License-Identifier: MIT
// A colour tree that is pruned while it grows, for palettes fitted to a picture.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "imaging/cDIB.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// An octree over the colour cube. At each level a channel's range is cut at its rounded middle, which
/// the weighted component is compared with. The deepest nodes, and among them the one that was last
/// entered, are merged as soon as there are too many colours.
class ColourTree {
 public:
    /// Error 9 when nLevels is not 1 to 8.
    ColourTree(int nLevels, float redWeight, float greenWeight, float blueWeight);

    /// Adds the surface's pixels in memory order, and merges after each while there are more colours
    /// than `mostColours` and something is left to merge.
    void add(const cDIB& DIB, int mostColours);

    /// The means of the leaves, the most frequent first. Leaves of equal count stand in the order of an
    /// exchange sort over all nodes, the abandoned ones included. The tree is of no further use.
    std::vector<RgbQuad> coloursByPopularity();

 private:
    static constexpr int kMostLevels = 8;

    using NodeNumber = std::int32_t;  // 0 is none
    struct Node {
        bool isLeaf = false;
        bool inReducibleList = false;
        std::array<std::int32_t, 3> sums{};  // of blue, green and red
        /// Pixels of a leaf; of an inner node the children ever made, which the sort runs over too.
        std::int32_t pixelCount = 0;
        std::array<NodeNumber, 8> children{};
        NodeNumber next = 0;
    };
    /// Which half of its range a component takes at each level, the first level in the highest bit.
    using Path = std::array<std::uint8_t, 256>;

    static Path pathOf(float weight);
    void addPixel(const std::uint8_t* pixel);
    bool mergeOne();
    NodeNumber takeNode();
    void releaseNode(NodeNumber number);
    Node& node(NodeNumber number) { return m_nodes[static_cast<std::size_t>(number)]; }

    int m_levels;
    Path m_redPath;
    Path m_greenPath;
    Path m_bluePath;
    std::vector<Node> m_nodes;  // node 0 is none, node 1 the root
    std::int32_t m_nodeCount = 1;
    std::int32_t m_colours = 0;
    NodeNumber m_freeHead = 0;
    std::array<NodeNumber, kMostLevels + 1> m_reducible{};  // by level, from 1
};

}  // namespace mobrel
