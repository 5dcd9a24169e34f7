// SPDX-License-Identifier: MIT
#include "support/ScratchFolder.hpp"

#include <stdlib.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <system_error>

namespace mobrel::bench {

ScratchFolder::ScratchFolder() {
    const bool hasMemory = ::access("/dev/shm", W_OK) == 0;
    const std::filesystem::path parent = hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path();
    std::string name = (parent / "mobrel-bench-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for scratch files");
    m_path = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

}  // namespace mobrel::bench
