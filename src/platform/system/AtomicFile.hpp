// SPDX-License-Identifier: MIT
// Puts files in their places whole: nobody ever sees half of one.
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

#include "platform/system/Files.hpp"

namespace mobrel {

// Each operation writes a new file in the target's folder, under a hidden name of its own, and renames it.
// When anything fails, be it `write`, the new file is deleted and the target stays as it is. They throw
// RuntimeError, errorNumberOf the reason, and what `write` throws.

/// Puts the bytes of a file into the writer, which is closed afterwards.
using WriteContents = std::function<void(FileWriter&)>;

/// Makes a file of mode 0666 under the process's mask. PathFileAccess when there is anything of that name by
/// then.
void createFile(const std::string& target, const WriteContents& write);

/// The same in place of whatever there is of that name. A symbolic link goes, not what it leads to.
void replaceFile(const std::string& target, const WriteContents& write);

/// Of an earlier file.
struct FileAttributes {
    uid_t owner = 0;
    gid_t group = 0;
    mode_t mode = 0;
};

/// The same with the mode of an earlier file and, as far as this process may give it away, its owner and
/// group. Nobody else can read the new file before it has them.
void replaceFile(const std::string& target, const FileAttributes& attributes, const WriteContents& write);

/// The same, and the new file with its attributes is on the disk before it takes the target's place.
void replaceFileDurably(const std::string& target, const FileAttributes& attributes,
                        const WriteContents& write);

}  // namespace mobrel
