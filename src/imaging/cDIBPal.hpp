// SPDX-License-Identifier: MIT
// The colour table of a document of 1, 4 or 8 bits, and the ways to build one.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "imaging/NearestByFullSearch.hpp"
#include "imaging/cDIB.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// What ClosestColor answers: an entry and its components.
struct ClosestEntry {
    std::uint8_t cR = 0;
    std::uint8_t cG = 0;
    std::uint8_t cb = 0;
    std::uint8_t PalEntry = 0;

    bool operator==(const ClosestEntry&) const = default;
};

/// Up to 256 entries of blue, green, red, 0. Empty at first and after Clear. Every builder makes the
/// table anew, entries that it does not fill being black, and makes it searchable.
class cDIBPal {
 public:
    /// Makes the table anew with nEntries black entries and lends the first one. What ClosestColor
    /// searches stays as it was.
    RgbQuad* InitializePalette(int nEntries);
    /// Entry 0; null when the table is empty.
    RgbQuad* PalettePtr() noexcept { return m_entries.data(); }
    const RgbQuad* PalettePtr() const noexcept { return m_entries.data(); }
    /// What ClosestColor searches: the table as the last builder left it; null when there is none.
    const NearestByFullSearch* hPal() const noexcept { return m_searchable ? &*m_searchable : nullptr; }
    int Count() const noexcept { return static_cast<int>(m_entries.size()); }

    /// A component of an entry. Error 9 when there is no such entry.
    std::uint8_t rgbR(std::uint8_t PalEntry) const { return entry(PalEntry).red; }
    std::uint8_t rgbG(std::uint8_t PalEntry) const { return entry(PalEntry).green; }
    std::uint8_t rgbB(std::uint8_t PalEntry) const { return entry(PalEntry).blue; }

    /// Empties the table; nothing is searchable any more.
    void Clear() noexcept;

    /// The entry of least squared distance, the lowest index among equals. Error 91 when no builder has
    /// run since the table was cleared.
    ClosestEntry ClosestColor(std::uint8_t R, std::uint8_t G, std::uint8_t B) const;

    /// True when there are entries and each has equal components.
    bool IsGreyScale() const noexcept;

    /// Black, white.
    void CreateBlackAndWhite();
    /// The 16 colours of the EGA.
    void CreateEGA();
    /// 256 entries: the cube of 5 levels, red fastest, then black.
    void CreateHalftone();
    /// 256 entries: the cube of 6 levels between the EGA's colours, one black entry, 31 greys.
    void CreateWebsafe();
    /// 16 and 256 even greys.
    void CreateGreys_016();
    void CreateGreys_256();
    /// 16 and 256 samples of the picture on a grid, in the surface's order. Black for an empty surface.
    void CreateFastOptimal_016(const cDIB& DIB);
    void CreateFastOptimal_256(const cDIB& DIB);
    /// PalSize entries fitted to the picture by a colour tree of nLevels (1 to 8), in falling order of
    /// popularity. A weight scales its channel before it is compared with the middle of a range, so a
    /// small one keeps the channel in the lower half of the tree. Error 9 for more levels, and for a
    /// PalSize below the 8 colours that the tree cannot merge.
    void CreateOptimal(const cDIB& DIB, int PalSize, int nLevels, float RWeight, float GWeight,
                       float BWeight);

 private:
    const RgbQuad& entry(std::uint8_t PalEntry) const;
    void makeSearchable();
    void sampleGrid(const cDIB& DIB, int side);

    std::vector<RgbQuad> m_entries;
    std::optional<NearestByFullSearch> m_searchable;
};

}  // namespace mobrel
