// SPDX-License-Identifier: MIT
// What other libraries do that is nearest to our operations, timed in the same rounds.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "imaging/cDIB.hpp"

namespace mobrel::bench {

/// One operation of another library, ready to be timed on its own copy of a picture.
struct PeerRun {
    /// Undoes the last round; not timed.
    std::function<void()> prepare;
    std::function<void()> run;
};

/// The nearest that another library has to an operation of ours. It does comparable work on as many
/// pixels, on one core; its results are its own.
struct PeerOperation {
    std::string_view operation;
    std::function<PeerRun(const cDIB& picture)> open;
};

/// A library and its operations; each may stand beside several of ours.
struct Peer {
    std::string name;
    std::vector<PeerOperation> operations;
};

/// The libraries that were found when the benchmarks were configured.
std::span<const Peer> peers();

}  // namespace mobrel::bench
