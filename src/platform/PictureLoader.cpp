// SPDX-License-Identifier: MIT
#include "platform/PictureLoader.hpp"

#include "platform/BmpReader.hpp"
#include "platform/Files.hpp"

namespace mobrel {

std::unique_ptr<StdPicture> loadPicture(const std::string& path) {
    FileSource file(path);
    return std::make_unique<StdPicture>(readBmp(file));
}

}  // namespace mobrel
