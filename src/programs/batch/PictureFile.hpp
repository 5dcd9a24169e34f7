// SPDX-License-Identifier: MIT
// Reads picture files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "programs/batch/Document.hpp"

namespace mobrel::batch {

/// Reads the picture of a file; of a folder, a pipe or a device there is none. Throws Failure and what
/// readDocument does. Never waits for another process.
void readPictureFile(const std::string& path, std::optional<std::uint64_t> maxPixels, Document& document);

}  // namespace mobrel::batch
