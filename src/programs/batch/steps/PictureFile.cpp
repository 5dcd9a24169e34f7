// SPDX-License-Identifier: MIT
#include "programs/batch/steps/PictureFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include "platform/system/Files.hpp"
#include "programs/batch/steps/Failure.hpp"

namespace mobrel::batch {

namespace {

FileDescriptor openPicture(const std::string& path) {
    // A pipe of that name must not hold up the opening.
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
        throw Failure(std::generic_category().message(errno));
    }
    if (S_ISDIR(status.st_mode)) throw Failure("is a folder");
    if (!S_ISREG(status.st_mode)) throw Failure("is no regular file");
    return file;
}

}  // namespace

void readDocument(ByteSource& source, const ReadOptions& options, Document& document) {
    LoadedPicture loaded = readPicture(source, options);
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
