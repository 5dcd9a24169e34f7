// SPDX-License-Identifier: MIT
#include "platform/system/Files.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/base/AsciiText.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kPendingBytes = 64 * 1024;

FileDescriptor openForWriting(const std::string& path, int flags, mode_t mode) {
    FileDescriptor descriptor = openFile(path, O_WRONLY | O_CREAT | flags, mode);
    if (!descriptor.isOpen()) throwErrno(errno);
    return descriptor;
}

void writeAll(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throwErrno(errno);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

std::string_view withoutTrailingSeparators(std::string_view path) noexcept {
    while (!path.empty() && path.back() == '/') path.remove_suffix(1);
    return path;
}

bool matches(std::string_view name, std::string_view prefix, std::size_t digits, std::string_view suffix) {
    if (name.size() != prefix.size() + digits + suffix.size()) return false;
    const std::string_view number = name.substr(prefix.size(), digits);
    return equalIgnoringCase(name.substr(0, prefix.size()), prefix) &&
           std::all_of(number.begin(), number.end(), isAsciiDigit) &&
           equalIgnoringCase(name.substr(prefix.size() + digits), suffix);
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (!isSystemName(folder)) return names;
    const auto close = [](DIR* entries) { ::closedir(entries); };
    const std::unique_ptr<DIR, decltype(close)> entries(::opendir(folder.c_str()), close);
    if (entries == nullptr) return names;
    while (const dirent* entry = ::readdir(entries.get())) names.emplace_back(entry->d_name);
    return names;
}

std::filesystem::path executableFolder() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

}  // namespace

ErrorNumber errorNumberOf(int errnoValue) noexcept {
    switch (errnoValue) {
        case ENOENT:
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
        case EEXIST:
            return ErrorNumber::PathFileAccess;
        case EMFILE:
        case ENFILE:
            return ErrorNumber::TooManyFiles;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case EINVAL:
        case ENAMETOOLONG:
        case ELOOP:
        case EBADF:
            return ErrorNumber::BadFileName;
        case ENOMEM:
            return ErrorNumber::OutOfMemory;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

void throwErrno(int errnoValue) {
    throw RuntimeError(errorNumberOf(errnoValue));
}

bool isSystemName(const std::string& path) noexcept {
    return path.find('\0') == std::string::npos;
}

void FileDescriptor::reset(int descriptor) noexcept {
    const int old = std::exchange(m_descriptor, descriptor);
    if (old >= 0) ::close(old);
}

FileDescriptor duplicateOf(int descriptor) {
    FileDescriptor copy(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    if (!copy.isOpen()) throwErrno(errno);
    return copy;
}

FileDescriptor openFile(const std::string& path, int flags, mode_t mode) noexcept {
    if (!isSystemName(path)) {
        errno = EINVAL;
        return {};
    }
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), flags | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EINTR);
    return FileDescriptor(descriptor);
}

FileDescriptor openRegularFile(const std::string& path) noexcept {
    FileDescriptor file = openFile(path, O_RDONLY | O_NONBLOCK);
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0) return {};
    if (S_ISREG(status.st_mode)) return file;
    file.reset();
    errno = S_ISDIR(status.st_mode) ? EISDIR : ESPIPE;
    return {};
}

FileSource::FileSource(const std::string& path)
    : m_owned(openRegularFile(path)), m_descriptor(m_owned.get()) {
    if (m_owned.isOpen()) return;
    if (errno == ENOENT) throw RuntimeError(ErrorNumber::FileNotFound);
    throwErrno(errno);
}

std::size_t FileSource::read(std::span<std::uint8_t> into) {
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t count = ::read(m_descriptor, into.data() + done, into.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw RuntimeError(ErrorNumber::DeviceIoError);
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::optional<std::uint64_t> FileSource::remaining() const {
    struct stat status = {};
    if (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    const off_t position = ::lseek(m_descriptor, 0, SEEK_CUR);
    if (position < 0) return std::nullopt;
    return status.st_size > position ? static_cast<std::uint64_t>(status.st_size - position) : 0;
}

FileWriter::FileWriter(FileDescriptor descriptor) : m_descriptor(std::move(descriptor)) {
    m_pending.reserve(kPendingBytes);
}

FileWriter FileWriter::replace(const std::string& path) {
    deleteFileIfPossible(path);
    // Opened without truncation: of a file that could not be deleted, but can be written, the part
    // beyond the new bytes stays.
    return FileWriter(openForWriting(path, 0, 0666));
}

FileWriter FileWriter::replacePrivate(const std::string& path) {
    deleteFileIfPossible(path);
    return FileWriter(openForWriting(path, O_EXCL | O_NOFOLLOW, 0600));
}

FileWriter::~FileWriter() {
    skipErrors([this] { close(); });
}

void FileWriter::write(std::span<const std::uint8_t> bytes) {
    if (!m_descriptor.isOpen()) throw RuntimeError(ErrorNumber::BadFileName);
    if (bytes.size() > kPendingBytes - m_pending.size()) flush();
    if (bytes.size() >= kPendingBytes) {
        writeAll(m_descriptor.get(), bytes);
    } else {
        m_pending.insert(m_pending.end(), bytes.begin(), bytes.end());
    }
}

void FileWriter::flush() {
    // Emptied even when it fails, so that nothing is written twice or out of its place.
    std::vector<std::uint8_t> pending;
    pending.swap(m_pending);
    writeAll(m_descriptor.get(), pending);
    pending.clear();
    m_pending.swap(pending);
}

void FileWriter::sync() {
    flush();
    // A file system that cannot do it says EINVAL.
    if (::fdatasync(m_descriptor.get()) != 0 && errno != EINVAL) throwErrno(errno);
}

void FileWriter::close() {
    if (!m_descriptor.isOpen()) return;
    FileDescriptor closing = std::move(m_descriptor);
    writeAll(closing.get(), m_pending);
    // An interrupted close has closed the descriptor all the same.
    if (::close(closing.release()) != 0 && errno != EINTR) throwErrno(errno);
}

bool fileExists(const std::string& path) noexcept {
    struct stat status = {};
    return isSystemName(path) && ::stat(path.c_str(), &status) == 0;
}

void deleteFileIfPossible(const std::string& path) noexcept {
    if (isSystemName(path)) ::unlink(path.c_str());
}

void renameFileIfPossible(const std::string& from, const std::string& to) noexcept {
    if (isSystemName(from) && isSystemName(to)) std::rename(from.c_str(), to.c_str());
}

void deleteMatchingFiles(const std::string& folder, const std::string& prefix, int digits,
                         const std::string& suffix) {
    if (digits < 0) return;
    for (const std::string& name : namesIn(joinPath(folder, ""))) {
        if (matches(name, prefix, static_cast<std::size_t>(digits), suffix)) {
            deleteFileIfPossible(joinPath(folder, name));
        }
    }
}

std::string joinPath(std::string_view folder, std::string_view name) {
    folder = withoutTrailingSeparators(folder);
    while (!name.empty() && name.front() == '/') name.remove_prefix(1);
    std::string path(folder);
    path += '/';
    path += name;
    return path;
}

std::string folderOf(const std::string& path) {
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? "." : path.substr(0, separator + 1);
}

std::string programFolder() {
    std::string folder;
    if (const char* const set = std::getenv("MOBREL_FOLDER")) folder = set;
    if (folder.empty()) folder = executableFolder().string();
    if (folder.empty()) return ".";
    const std::string_view trimmed = withoutTrailingSeparators(folder);
    return trimmed.empty() ? "/" : std::string(trimmed);
}

std::string helperFile(std::string_view name) {
    const std::filesystem::path folder = executableFolder();
    for (const char* const place : {".", "../lib/mobrel", "../libexec/mobrel"}) {
        std::string file = (folder / place / name).lexically_normal();
        if (::access(file.c_str(), R_OK) == 0) return file;
    }
    return {};
}

std::optional<std::string> environmentValue(std::string_view name) {
    std::optional<std::string> other;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        const std::size_t separator = text.find('=');
        if (separator == std::string_view::npos) continue;
        const std::string_view entryName = text.substr(0, separator);
        if (entryName == name) return std::string(text.substr(separator + 1));
        if (!other && equalIgnoringCase(entryName, name)) other = text.substr(separator + 1);
    }
    return other;
}

bool isVariableSet(const char* name) noexcept {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

}  // namespace mobrel
