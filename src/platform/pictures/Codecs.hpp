// SPDX-License-Identifier: MIT
// What other libraries do with pictures. It lies in a module of its own, so that a program that has no need
// of it starts without those libraries.
#pragma once

#include <string>
#include <utility>

#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/DeviceContext.hpp"
#include "platform/pictures/PictureView.hpp"
#include "platform/pictures/ReadOptions.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/BufferedSource.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

/// The module's functions. The headers of codecs/ and of drawing/scaling/ tell of each.
struct Codecs {
    StdPicture (*readGif)(BufferedSource& source, const ReadOptions& options);
    StdPicture (*readJpeg)(BufferedSource& source, const ReadOptions& options);
    StdPicture (*readPng)(BufferedSource& source, const ReadOptions& options);
    void (*writeGif)(FileWriter& file, const IndexedPicture& picture);
    void (*writeJpeg)(FileWriter& file, const PictureView& picture, int quality);
    void (*writePng)(FileWriter& file, const PictureView& picture);
    bool (*scaleByGraph)(DeviceContext& target, const DeviceContext& source);
};

/// The module cannot be opened: error 48, whose what() names the file and the reason.
class ModuleError : public RuntimeError {
 public:
    explicit ModuleError(std::string reason)
        : RuntimeError(ErrorNumber::LibraryNotLoaded), m_reason(std::move(reason)) {}

    const char* what() const noexcept override { return m_reason.c_str(); }

 private:
    std::string m_reason;
};

/// Opens the module at the first call: the file libmobrel-codecs.so beside this library, else from where the
/// system finds libraries. It stays open. Throws ModuleError; the next call tries again then.
const Codecs& codecs();

}  // namespace mobrel
