// SPDX-License-Identifier: MIT
// Puts results in their places, whole or not at all.
#pragma once

#include <string>

#include "platform/system/AtomicFile.hpp"

namespace mobrel::batch {

// The file operations are those of AtomicFile.hpp. Each throws Failure, which names the target, and then
// leaves it as it was.

/// Throws Failure when there is anything of that name already, be it a link that leads nowhere.
void checkFree(const std::string& target);

/// Makes a new file of mode 0666 under the process's mask. Nothing of that name may be there, also not
/// since it was checked.
void writeBeside(const std::string& target, const WriteContents& write);

/// The same in place of whatever file or link has that name.
void writeOver(const std::string& target, const WriteContents& write);

/// Takes the place of a file that may be written to; the new one has its mode and, where that can be, its
/// owner and group, and is on the disk before the old one goes.
void writeInPlace(const std::string& target, const WriteContents& write);

/// Writes as it comes: a reader may see the beginning of a result that fails.
void writeToStandardOutput(const WriteContents& write);

}  // namespace mobrel::batch
