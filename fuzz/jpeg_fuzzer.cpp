// SPDX-License-Identifier: MIT
// Fuzz target of the JPEG reader: any bytes give a sound picture or a PictureError.
#include "picture_target.hpp"
#include "platform/pictures/codecs/JpegReader.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    mobrel::fuzz::checkReader(mobrel::readJpeg, {data, size});
    return 0;
}
