// SPDX-License-Identifier: MIT
// Reads JPEG files.
#pragma once

#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"

namespace mobrel {

/// Reads one JPEG from the source, from its first byte: baseline and progressive files of 8 bits a sample;
/// grey, RGB, YCbCr, CMYK and YCCK, the latter two with the inverted samples that an Adobe marker tells of
/// or without. The result has 24 bits, and the orientation of the file's EXIF data.
///
/// Throws PictureError when the file is no JPEG, is cut short or damaged, has more scans than any encoder
/// writes, or asks for a picture that no surface can hold or that is larger than the options allow; what
/// the source throws; std::bad_alloc when memory is short. Memory is used up only as bytes arrive.
///
/// Source of the format: ITU-T Recommendation T.81; Adobe Technical Note 5116 for the Adobe marker.
StdPicture readJpeg(BufferedSource& source, const ReadOptions& options = {});

}  // namespace mobrel
