// SPDX-License-Identifier: MIT
// Makes picture objects from picture files.
#pragma once

#include <memory>
#include <string>

#include "platform/StdPicture.hpp"

namespace mobrel {

/// Loads a BMP file. The content decides, not the name. Errors: the platform's file errors when the
/// file cannot be read, PictureError when it is no picture or a broken one.
std::unique_ptr<StdPicture> loadPicture(const std::string& path);

}  // namespace mobrel
