// SPDX-License-Identifier: MIT
// Error diffusion by the kernel of Stucki.
#pragma once

#include <cstdint>
#include <span>

#include "imaging/diffusion/ErrorDiffusion.hpp"

namespace mobrel {

/// Black and white by a threshold. The kernel, in forty-seconds, spreads whole numbers that are kept beside
/// the pixels, so that only the pixels' own values are limited. The rows are scanned from the left, and the
/// next ones are those above:
///
///     1  2  4  2  1
///     2  4  8  4  2
///           x  8  4
///
/// The last columns and rows get less than the kernel could reach: kept. The threshold is 0 to 255; of an
/// error 10 / weight takes effect, and the weight is not 0.
void diffuseStucki(cDIB& DIB, const Paint& paint, int threshold, std::int32_t weight, const RowDone& rowDone);

/// The same for one or two bands in wavefronts.
extern const VectorKernel<void(std::span<RowBand>, int threshold, std::int32_t weight, CarriedErrors<float>&)>
    diffuseBlackAndWhite;

}  // namespace mobrel
