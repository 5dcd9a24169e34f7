// SPDX-License-Identifier: MIT
// Palettes of 256 colours fitted to a small copy of a picture.
#pragma once

#include "imaging/cDIB.hpp"
#include "imaging/cDIBPal.hpp"

namespace mobrel {

/// Makes `copy` the picture at no more than 150 x 150 pixels, of any proportions: what a palette is
/// fitted to.
void copyForPalette(cDIB& copy, const cDIB& DIB);

/// 256 entries fitted to such a copy, all channels weighing the same.
void createFitted256(cDIBPal& Pal, const cDIB& copy);

/// 16 entries fitted to it, by the weights of the eye.
void createFitted16(cDIBPal& Pal, const cDIB& copy);

}  // namespace mobrel
