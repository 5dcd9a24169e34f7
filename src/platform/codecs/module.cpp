// SPDX-License-Identifier: MIT
// What the module of the codecs exports.
#include "platform/Codecs.hpp"
#include "platform/codecs/BicubicGraph.hpp"
#include "platform/codecs/GifReader.hpp"
#include "platform/codecs/GifWriter.hpp"
#include "platform/codecs/JpegReader.hpp"
#include "platform/codecs/JpegWriter.hpp"
#include "platform/codecs/PngReader.hpp"
#include "platform/codecs/PngWriter.hpp"

namespace mobrel {

namespace {

bool scaleForProcessor(DeviceContext& target, const DeviceContext& source) {
    return scaleByGraph(target, source, ZimgKernels::ForProcessor);
}

}  // namespace

/// Looked up by its name.
extern "C" const Codecs mobrelCodecs;
const Codecs mobrelCodecs = {
    .readGif = readGif,
    .readJpeg = readJpeg,
    .readPng = readPng,
    .writeGif = writeGif,
    .writeJpeg = writeJpeg,
    .writePng = writePng,
    .scaleByGraph = scaleForProcessor,
};

}  // namespace mobrel
