// SPDX-License-Identifier: MIT
#include "imaging/cDIBPal.hpp"

#include "platform/RuntimeError.hpp"

namespace mobrel {

RgbQuad* cDIBPal::InitializePalette(int nEntries) {
    m_entries.assign(static_cast<std::size_t>(nEntries), RgbQuad{});
    return m_entries.data();
}

const RgbQuad& cDIBPal::entry(std::uint8_t PalEntry) const {
    if (PalEntry >= m_entries.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return m_entries[PalEntry];
}

}  // namespace mobrel
