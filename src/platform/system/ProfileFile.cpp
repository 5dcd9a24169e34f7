// SPDX-License-Identifier: MIT
#include "platform/system/ProfileFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>

#include "platform/base/AsciiText.hpp"
#include "platform/base/RuntimeError.hpp"
#include "platform/system/AtomicFile.hpp"
#include "platform/system/Files.hpp"
#include "platform/system/ProfileText.hpp"

namespace mobrel {

namespace {

// Files of settings are small; one beyond all use is not taken into memory.
constexpr off_t kLargestFile = 64 * 1024 * 1024;
constexpr int kLongestLinkChain = 40;

enum class FileState { Absent, Unusable, Present };

struct Contents {
    FileState state = FileState::Unusable;
    std::string bytes;
    struct stat status = {};
};

// Only a regular file is read.
Contents readProfile(const std::string& path) {
    Contents contents;
    const FileDescriptor file = openRegularFile(path);
    if (!file.isOpen()) {
        if (errno == ENOENT) contents.state = FileState::Absent;
        return contents;
    }
    struct stat& status = contents.status;
    if (::fstat(file.get(), &status) != 0 || status.st_size > kLargestFile) return contents;
    contents.bytes.resize(static_cast<std::size_t>(status.st_size));
    const bool complete = skipErrors([&] {
        auto* const bytes = reinterpret_cast<std::uint8_t*>(contents.bytes.data());
        contents.bytes.resize(FileSource::borrowed(file.get()).read({bytes, contents.bytes.size()}));
    });
    if (complete) contents.state = FileState::Present;
    return contents;
}

// The file a path leads to by its symbolic links, whether it is there or not.
std::optional<std::string> withoutLinks(const std::string& path) {
    std::filesystem::path file(path);
    for (int links = 0; links < kLongestLinkChain; ++links) {
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(file, error);
        if (error) return file.string();  // no link
        file = file.parent_path() / target;
    }
    return std::nullopt;
}

void writeText(FileWriter& writer, std::string_view bytes) {
    writer.write({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

bool mayWriteTo(const std::string& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

// Over the old bytes, in a folder that takes no new file.
bool overwriteProfile(const std::string& path, std::string_view bytes) {
    const FileDescriptor file = openFile(path, O_WRONLY);
    if (!file.isOpen()) return false;
    return skipErrors([&] {
        FileWriter writer(duplicateOf(file.get()));
        writeText(writer, bytes);
        writer.close();
        if (::ftruncate(file.get(), static_cast<off_t>(bytes.size())) != 0) throwErrno(errno);
    });
}

// There is no sync: it would protect from a loss of power only, and slow down each of the many short writes
// of a program that starts another.
bool writeProfile(const std::string& path, std::string_view bytes, const Contents& old) {
    const auto write = [&](FileWriter& writer) { writeText(writer, bytes); };
    if (old.state == FileState::Absent) return skipErrors([&] { replaceFile(path, write); });
    // A rename needs no right to write to the file it replaces, but a protected file stays as it is.
    if (!mayWriteTo(path)) return false;
    if (!mayWriteTo(folderOf(path))) return overwriteProfile(path, bytes);
    const struct stat& status = old.status;
    return skipErrors([&] {
        replaceFile(path, {status.st_uid, status.st_gid, status.st_mode & 0777}, write);
    });
}

}  // namespace

std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size,
                                    const std::string& path) {
    if (size == 0) return {};
    std::optional<std::string> value;
    const Contents contents = readProfile(path);
    if (contents.state == FileState::Present) value = profileValue(contents.bytes, section, key);
    if (!value) value = withoutOuterQuotes(withoutTrailingBlanks(defaultValue));
    if (value->size() > size - 1) value->resize(size - 1);
    return *std::move(value);
}

bool WritePrivateProfileString(std::string_view section, std::string_view key, std::string_view value,
                               const std::string& path) {
    const ProfileValue one{section, key, std::string(value)};
    return WritePrivateProfileStrings({&one, 1}, path);
}

bool WritePrivateProfileStrings(std::span<const ProfileValue> values, const std::string& path) {
    const auto target = isSystemName(path) ? withoutLinks(path) : std::nullopt;
    if (!target || target->empty()) return false;
    const Contents old = readProfile(*target);
    if (old.state == FileState::Unusable) return false;
    std::string bytes = old.bytes;
    bool takesAll = true;
    for (const ProfileValue& value : values) {
        auto changed = profileWithValue(bytes, value.section, value.key, value.value);
        takesAll = takesAll && changed.has_value();
        if (changed) bytes = *std::move(changed);
    }
    if (bytes == old.bytes) return takesAll;
    return writeProfile(*target, bytes, old) && takesAll;
}

}  // namespace mobrel
