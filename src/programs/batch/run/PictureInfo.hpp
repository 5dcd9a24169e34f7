// SPDX-License-Identifier: MIT
// What --info tells of a picture.
#pragma once

#include <string>

#include "imaging/PictureInfo.hpp"

namespace mobrel::batch {

/// Six lines below the file's name.
std::string infoText(const std::string& file, const PictureInfo& info);

}  // namespace mobrel::batch
