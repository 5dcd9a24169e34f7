// SPDX-License-Identifier: MIT
// Reads documents from picture files.
#pragma once

#include <string>

#include "platform/pictures/ReadOptions.hpp"
#include "platform/system/ByteSource.hpp"
#include "programs/batch/steps/Document.hpp"

namespace mobrel::batch {

/// Reads a picture of any of the formats, by its content. Throws as readPicture does.
void readDocument(ByteSource& source, const ReadOptions& options, Document& document);

/// Reads the picture of a file; of a folder, a pipe or a device there is none. Throws Failure and what
/// readDocument does. Never waits for another process.
void readPictureFile(const std::string& path, const ReadOptions& options, Document& document);

}  // namespace mobrel::batch
