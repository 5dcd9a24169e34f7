// SPDX-License-Identifier: MIT
#include "platform/PictureLoader.hpp"

#include <filesystem>
#include <system_error>

#include "platform/BmpReader.hpp"
#include "platform/Files.hpp"

namespace mobrel {

std::unique_ptr<StdPicture> loadPicture(const std::string& path) {
    // Opening a pipe would wait for somebody to write to it.
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw PictureError("not a regular file");
    }
    FileSource file(path);
    return std::make_unique<StdPicture>(readBmp(file));
}

}  // namespace mobrel
