// SPDX-License-Identifier: MIT
#include "programs/batch/steps/PictureFile.hpp"

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include "platform/system/Files.hpp"
#include "programs/batch/steps/Failure.hpp"

namespace mobrel::batch {

namespace {

FileDescriptor openPicture(const std::string& path) {
    FileDescriptor file = openRegularFile(path);
    if (file.isOpen()) return file;
    if (errno == EISDIR) throw Failure("is a folder");
    if (errno == ESPIPE) throw Failure("is no regular file");
    throw Failure(std::generic_category().message(errno));
}

}  // namespace

void readDocument(ByteSource& source, const ReadOptions& options, Document& document) {
    BufferedSource buffered(source);
    IdentifiedPicture loaded = readPicture(buffered, options);
    document.format = loaded.format;
    document.hadTransparency = loaded.picture.hadTransparency;
    document.hasMoreFrames = loaded.picture.hasMoreFrames;
    document.orientation = loaded.picture.orientation;
    auto picture = std::make_unique<StdPicture>(std::move(loaded.picture));
    document.depth = static_cast<std::uint8_t>(
        document.surface.CreateFromStdPicture(std::move(picture), document.palette, &document.indices));
}

void readPictureFile(const std::string& path, const ReadOptions& options, Document& document) {
    const FileDescriptor file = openPicture(path);
    FileSource source = FileSource::borrowed(file.get());
    readDocument(source, options, document);
}

}  // namespace mobrel::batch
