// SPDX-License-Identifier: MIT
// Reads PNG files.
#pragma once

#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Reads one PNG from the source, from its first byte: every colour type and depth, interlaced or not. The
/// result is always true colour (bitsPixel 24, no table).
///
/// Samples of 16 bits are rounded to 8; gamma and colour profiles count for nothing. Pixels that are not
/// opaque lie over the background, blended in the samples as they stand.
///
/// Throws PictureError when the file is no PNG, is cut short or damaged, or asks for a picture that no
/// surface can hold or that is larger than the options allow; what the source throws; std::bad_alloc when
/// memory is short. Memory is used up only as bytes arrive.
///
/// Source of the format: W3C Recommendation, "Portable Network Graphics (PNG) Specification".
StdPicture readPng(BufferedSource& source, const ReadOptions& options = {});

}  // namespace mobrel
