// SPDX-License-Identifier: MIT
// What the module of the codecs exports.
#include "platform/drawing/scaling/BicubicGraph.hpp"
#include "platform/pictures/Codecs.hpp"
#include "platform/pictures/codecs/GifReader.hpp"
#include "platform/pictures/codecs/GifWriter.hpp"
#include "platform/pictures/codecs/JpegReader.hpp"
#include "platform/pictures/codecs/JpegWriter.hpp"
#include "platform/pictures/codecs/PngReader.hpp"
#include "platform/pictures/codecs/PngWriter.hpp"

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
