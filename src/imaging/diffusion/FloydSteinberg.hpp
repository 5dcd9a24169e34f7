// SPDX-License-Identifier: MIT
// Error diffusion by the kernel of Floyd and Steinberg.
#pragma once

#include <cstdint>
#include <span>

#include "imaging/GreyLevels.hpp"
#include "imaging/diffusion/ErrorDiffusion.hpp"

namespace mobrel {

/// The kernel, in sixteenths, works straight on the pixels at the precision of a byte: each share is
/// truncated, and each sum is limited to 0 to 255 as it is written. Errors that sum to 3 or less stop at
/// their pixel. The rows are scanned from the left, and the next row is the one above:
///
///     3  5  1
///        x  7
///
/// Here by a table of 4,096 colours, 0x00RRGGBB with their indices above, in the order of a ColourCube.
void diffuseFloydSteinberg(cDIB& DIB, const Paint& paint, const std::uint32_t* table, const RowDone& rowDone);
/// The same by weighted greys.
void diffuseFloydSteinberg(cDIB& DIB, const Paint& paint, const GreyLevels& levels, const RowDone& rowDone);

/// Both for one or two bands in wavefronts.
extern const VectorKernel<void(std::span<RowBand>, const std::uint32_t* table, CarriedErrors<std::uint32_t>&)>
    diffuseColours;
extern const VectorKernel<void(std::span<RowBand>, const GreyLevels&, CarriedErrors<std::uint32_t>&)>
    diffuseGreys;

}  // namespace mobrel
