// SPDX-License-Identifier: MIT
#include "imaging/cDIBDither.hpp"

#include "platform/StdPicture.hpp"

namespace mobrel {

std::uint8_t* cDIBDither::InitializePalID(int nWidth, int nHeight, int nbpp) {
    m_map.assign(static_cast<std::size_t>(packedStride(nWidth, nbpp) * nHeight), 0);
    return m_map.data();
}

}  // namespace mobrel
