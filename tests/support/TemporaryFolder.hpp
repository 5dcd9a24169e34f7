// SPDX-License-Identifier: MIT
// A folder for the files of one test.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace mobrel::test {

/// A new empty folder in the system's folder for temporary files; goes with all it holds.
class TemporaryFolder {
 public:
    TemporaryFolder() : m_path((std::filesystem::temp_directory_path() / "mobrel-test-XXXXXX").string()) {
        if (::mkdtemp(m_path.data()) == nullptr) throw std::runtime_error("no temporary folder");
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::string& path() const noexcept { return m_path; }

    /// The path of a file in the folder.
    std::string file(std::string_view name) const { return m_path + "/" + std::string(name); }

    /// Writes a file in the folder; its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        std::ofstream stream(file(name), std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!stream.flush()) throw std::runtime_error("cannot write " + file(name));
        return file(name);
    }

    /// The bytes of a file in the folder.
    std::string read(std::string_view name) const {
        std::ifstream stream(file(name), std::ios::binary);
        if (!stream) throw std::runtime_error("cannot read " + file(name));
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The names in the folder, in order.
    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

 private:
    std::string m_path;
};

}  // namespace mobrel::test
