// SPDX-License-Identifier: MIT
// Writes BMP files at the document's depth.
#pragma once

#include <cstdint>
#include <string>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

class cDIBSave {
 public:
    /// Writes the picture as a BMP of `bpp` bits, uncompressed, bottom row first, in place of any
    /// earlier file of that name, which is deleted first. 24 bits come from the surface; 1, 4 and 8
    /// from the colour table and the index map, which must have been made for this picture. Any other
    /// depth gives a file of zero rows. Nothing at all happens for an empty surface.
    ///
    /// The file's rows are written as they are made: no second picture stands in memory.
    /// Errors: the platform's file errors (61 disk full, 75, 76 ...); 9 when the palette has too few
    /// entries for the depth; 91 when a palette depth comes without Dither. A failed write leaves the
    /// old file deleted.
    void Save_BMP(const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal, const cDIBDither* Dither,
                  std::uint8_t bpp) const;

    /// The same into a file that nobody else can read and that no link leads to.
    void Save_Private_BMP(const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal,
                          const cDIBDither* Dither, std::uint8_t bpp) const;

    /// The same into a file that is open, which is left open. Errors 9 and 91 come before the first byte.
    void Write_BMP(FileWriter& file, const cDIB& DIB, const cDIBPal& Pal, const cDIBDither* Dither,
                   std::uint8_t bpp) const;
};

}  // namespace mobrel
