// SPDX-License-Identifier: MIT
#pragma once

#include "peers/Peer.hpp"

namespace mobrel::bench {

Peer graphicsMagickPeer();

}  // namespace mobrel::bench
