// SPDX-License-Identifier: MIT
#include "peers/Peer.hpp"

#ifdef MOBREL_BENCH_OPENCV
#include "peers/OpenCvPeer.hpp"
#endif
#ifdef MOBREL_BENCH_GRAPHICSMAGICK
#include "peers/GraphicsMagickPeer.hpp"
#endif

namespace mobrel::bench {

std::span<const Peer> peers() {
    static const std::vector<Peer> found = [] {
        std::vector<Peer> all;
#ifdef MOBREL_BENCH_OPENCV
        all.push_back(openCvPeer());
#endif
#ifdef MOBREL_BENCH_GRAPHICSMAGICK
        all.push_back(graphicsMagickPeer());
#endif
        return all;
    }();
    return found;
}

}  // namespace mobrel::bench
