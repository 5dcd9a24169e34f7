// SPDX-License-Identifier: MIT
// The colour table of a document of 1, 4 or 8 bits.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/StdPicture.hpp"

namespace mobrel {

/// Up to 256 entries of blue, green, red, 0. Empty at first and after Clear.
class cDIBPal {
 public:
    /// Makes the table anew with nEntries black entries and lends the first one.
    RgbQuad* InitializePalette(int nEntries);
    /// Entry 0; null when the table is empty.
    RgbQuad* PalettePtr() noexcept { return m_entries.data(); }
    int Count() const noexcept { return static_cast<int>(m_entries.size()); }

    /// A component of an entry. Error 9 when there is no such entry.
    std::uint8_t rgbR(std::uint8_t PalEntry) const { return entry(PalEntry).red; }
    std::uint8_t rgbG(std::uint8_t PalEntry) const { return entry(PalEntry).green; }
    std::uint8_t rgbB(std::uint8_t PalEntry) const { return entry(PalEntry).blue; }

    void Clear() noexcept { m_entries.clear(); }

 private:
    const RgbQuad& entry(std::uint8_t PalEntry) const;

    std::vector<RgbQuad> m_entries;
};

}  // namespace mobrel
