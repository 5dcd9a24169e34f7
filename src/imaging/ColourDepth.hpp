// SPDX-License-Identifier: MIT
// The depth commands: what makes a picture one of 1, 4, 8 or 24 bits.
#pragma once

#include <cstdint>
#include <functional>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"

namespace mobrel {

/// A depth command by its place in the menu of colours; 3 and 7 are separators.
enum class DepthCommand : int {
    BlackAndWhite = 0,
    Greys16 = 1,
    Greys256 = 2,
    TwoColors = 4,  // the same as BlackAndWhite
    Colors16 = 5,
    Colors256 = 6,
    TrueColor = 8,
};

/// The parts of a document that a depth command works on.
struct DepthDocument {
    cDIB& DIB;
    cDIBPal& Pal;
    cDIBDither& Dither;
    /// The depth that the document counts as; set before the pixel work, whose end event may store it.
    std::uint8_t& BPP;
};

/// Runs a depth command, for fMain and for mobrel-batch alike; any other number does nothing. A colour
/// command on a document whose palette is grey takes the even greys of that depth: colours that are gone
/// cannot come back. Other palettes are fitted to a copy of at most 150 x 150 pixels, which keeps 1 pixel a
/// side even of slim pictures. `hourglass` is called with true before a palette is fitted to the picture and
/// with false after it.
void changeDepth(DepthCommand command, const DepthDocument& document,
                 const std::function<void(bool)>& hourglass);

}  // namespace mobrel
