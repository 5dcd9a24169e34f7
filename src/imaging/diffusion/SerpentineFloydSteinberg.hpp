// SPDX-License-Identifier: MIT
// Error diffusion by the kernel of Floyd and Steinberg, at full precision.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "imaging/cDIB.hpp"
#include "platform/pictures/StdPicture.hpp"

namespace mobrel {

/// The indices into a palette of 1 to 256 entries that a live surface's pixels become, one a byte, top line
/// first. Every other line is scanned from the right, so that no trail of the errors shows. Errors are kept
/// beside the pixels, in sixteenths, so that nothing is cut off on the way; the surface stays as it is.
std::vector<std::uint8_t> diffuseSerpentine(const cDIB& DIB, std::span<const RgbQuad> palette);

}  // namespace mobrel
