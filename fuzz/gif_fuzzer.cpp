// SPDX-License-Identifier: MIT
// Fuzz target of the GIF reader: any bytes give a sound picture or a PictureError.
#include "picture_target.hpp"
#include "platform/pictures/codecs/GifReader.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    mobrel::fuzz::checkReader(mobrel::readGif, {data, size});
    return 0;
}
