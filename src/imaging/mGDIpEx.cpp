// SPDX-License-Identifier: MIT
#include "imaging/mGDIpEx.hpp"

#include <filesystem>
#include <system_error>

#include "imaging/GifReduction.hpp"
#include "platform/base/RuntimeError.hpp"
#include "platform/pictures/Codecs.hpp"

namespace mobrel {

namespace {

void writeReduced(FileWriter& file, const cDIB& DIB) {
    const ReducedPicture reduced = reduceForGif(DIB);
    codecs().writeGif(file, {DIB.Width(), DIB.Height(), reduced.colorTable, reduced.indices});
}

}  // namespace

std::unique_ptr<StdPicture> LoadPictureGDIp(const std::string& FileName) {
    std::unique_ptr<StdPicture> picture;
    skipErrors([&] {
        FileSource file(FileName);
        BufferedSource source(file);
        picture = std::make_unique<StdPicture>(codecs().readPng(source, {}));
    });
    return picture;
}

void writePicture(FileWriter& file, const cDIB& DIB, ImageFormat format, int quality) {
    if (DIB.hDIB() == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
    switch (format) {
        case ImageFormat::Gif:
            return writeReduced(file, DIB);
        case ImageFormat::Jpeg:
            return codecs().writeJpeg(file, DIB.view(), quality);
        case ImageFormat::Png:
            return codecs().writePng(file, DIB.view());
    }
    throw RuntimeError(ErrorNumber::InvalidCall);
}

bool SaveDIB(const cDIB& DIB, const std::string& FileName, ImageFormat Format, int Quality) {
    deleteFileIfPossible(FileName);
    const bool isWritten = skipErrors([&] {
        // A file that could not be deleted may still be written, from its start.
        std::error_code ignored;
        std::filesystem::resize_file(FileName, 0, ignored);
        FileWriter file = FileWriter::replace(FileName);
        writePicture(file, DIB, Format, Quality);
        file.close();
    });
    if (!isWritten) deleteFileIfPossible(FileName);
    return isWritten;
}

}  // namespace mobrel
