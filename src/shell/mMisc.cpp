// SPDX-License-Identifier: MIT
#include "shell/mMisc.hpp"

#include <utility>

#include "platform/system/Files.hpp"

namespace mobrel {

std::string AddBackslash(std::string path) {
    if (!path.ends_with('/')) path += '/';
    return path;
}

std::string AppFolder() {
    return AddBackslash(programFolder());
}

}  // namespace mobrel
