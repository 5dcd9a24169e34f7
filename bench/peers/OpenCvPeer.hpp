// SPDX-License-Identifier: MIT
#pragma once

#include "peers/Peer.hpp"

namespace mobrel::bench {

Peer openCvPeer();

}  // namespace mobrel::bench
