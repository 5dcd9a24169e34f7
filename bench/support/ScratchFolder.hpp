// SPDX-License-Identifier: MIT
// A place for the files of a benchmark.
#pragma once

#include <filesystem>

namespace mobrel::bench {

/// A new empty folder in memory-backed storage where there is some, else among the temporary files; goes with
/// all it holds.
class ScratchFolder {
 public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }

 private:
    std::filesystem::path m_path;
};

}  // namespace mobrel::bench
