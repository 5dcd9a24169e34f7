// SPDX-License-Identifier: MIT
// Files, folders and the environment, with the platform's error numbers.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "platform/system/ByteSource.hpp"

namespace mobrel {

/// The platform's number for an error of a system call. A name that leads nowhere is PathNotFound;
/// an entry that is there and may not be used so is PathFileAccess; a name or descriptor that can
/// name nothing is BadFileName; a file that may not grow is DiskFull; no memory is OutOfMemory;
/// the rest is DeviceIoError.
///
/// Sources: IEEE Std 1003.1 (errors of open, read, write, close) and errno(3).
ErrorNumber errorNumberOf(int errnoValue) noexcept;

/// Throws RuntimeError(errorNumberOf(errnoValue)).
[[noreturn]] void throwErrno(int errnoValue);

/// False for a name with a zero byte: a system call would take what stands before it for the name, which is
/// another file.
bool isSystemName(const std::string& path) noexcept;

/// An open descriptor, closed at the end of its life.
class FileDescriptor {
 public:
    FileDescriptor() noexcept = default;
    explicit FileDescriptor(int descriptor) noexcept : m_descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : m_descriptor(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~FileDescriptor() { reset(); }

    bool isOpen() const noexcept { return m_descriptor >= 0; }
    int get() const noexcept { return m_descriptor; }

    /// Hands the descriptor over, open as it is.
    int release() noexcept { return std::exchange(m_descriptor, -1); }

    /// Closes what is held and holds `descriptor` instead.
    void reset(int descriptor = -1) noexcept;

 private:
    int m_descriptor = -1;
};

/// Another descriptor of the same open file. Throws RuntimeError, errorNumberOf the reason.
FileDescriptor duplicateOf(int descriptor);

/// Opens a file by open(2); another program that is started does not get it. Not open, and errno tells why,
/// when it fails.
FileDescriptor openFile(const std::string& path, int flags, mode_t mode = 0) noexcept;

/// Opens a regular file for reading. Never waits for the other end of a pipe. Not open, and errno tells why,
/// when it fails: EISDIR for a folder, ESPIPE for a pipe, a device and the like.
FileDescriptor openRegularFile(const std::string& path) noexcept;

/// A file, or whatever else a descriptor reads from, as a stream of bytes.
class FileSource final : public ByteSource {
 public:
    /// Opens a regular file. Throws RuntimeError: FileNotFound when there is none of that name, else
    /// errorNumberOf the reason; a folder is PathFileAccess.
    explicit FileSource(const std::string& path);

    /// Reads from a descriptor that somebody else opened and closes, such as standard input.
    static FileSource borrowed(int descriptor) { return FileSource(descriptor); }

    /// See ByteSource. Waits for a pipe that is slow. Throws RuntimeError(DeviceIoError).
    std::size_t read(std::span<std::uint8_t> into) override;

    /// Known for regular files only.
    std::optional<std::uint64_t> remaining() const override;

 private:
    explicit FileSource(int descriptor) noexcept : m_descriptor(descriptor) {}

    FileDescriptor m_owned;
    int m_descriptor;
};

/// Writes a file from front to back. Small pieces are gathered, large ones pass straight through.
/// A writer that dies unclosed writes what it still holds and tells nobody of errors.
class FileWriter {
 public:
    /// Opens a file that shall take the place of an earlier one of that name (mode 0666 under the
    /// process's mask). Throws RuntimeError, errorNumberOf the reason.
    static FileWriter replace(const std::string& path);

    /// The same for a file that only its owner may read (mode 0600). Nothing that is already there
    /// is ever written to, a symbolic link is not followed.
    static FileWriter replacePrivate(const std::string& path);

    /// Writes to a file that is open for writing.
    explicit FileWriter(FileDescriptor descriptor);

    FileWriter(FileWriter&&) noexcept = default;
    FileWriter& operator=(FileWriter&&) = delete;
    ~FileWriter();

    /// Throws RuntimeError: errorNumberOf the reason, BadFileName after close(). What was pending
    /// when an error came is lost.
    void write(std::span<const std::uint8_t> bytes);

    /// Writes what is pending and waits until all bytes are on the disk. Throws as write does.
    void sync();

    /// Writes what is pending and closes. Throws as write does; the file is closed all the same.
    /// Closing again does nothing.
    void close();

 private:
    void flush();

    FileDescriptor m_descriptor;
    std::vector<std::uint8_t> m_pending;
};

/// True for a file, a folder or anything else of that name; a link counts when its target is there.
bool fileExists(const std::string& path) noexcept;

/// Deletes a file, if that can be done; otherwise nothing happens.
void deleteFileIfPossible(const std::string& path) noexcept;

/// Gives a file another name, if that can be done; a file that has that name goes.
void renameFileIfPossible(const std::string& from, const std::string& to) noexcept;

/// Deletes the files of a folder whose names are `prefix`, exactly `digits` decimal digits and
/// `suffix`, without regard to the case of ASCII letters: the pattern of one running copy never matches the
/// files of another. What cannot be deleted stays.
void deleteMatchingFiles(const std::string& folder, const std::string& prefix, int digits,
                         const std::string& suffix);

/// Folder and name with exactly one separator between them, however many there were. The empty folder counts
/// as the root.
std::string joinPath(std::string_view folder, std::string_view name);

/// The folder of a path, with the separator at its end; "." for a bare name.
std::string folderOf(const std::string& path);

/// The folder of the program's own files: MOBREL_FOLDER of the environment where that is set and not
/// empty, else the folder of the executable. Without a separator at its end, except for the root.
std::string programFolder();

/// A helper of the programs, such as "mobrel-clipboard": beside this executable, or where an installed one
/// has its helpers. Empty when there is none that can be read.
std::string helperFile(std::string_view name);

/// A variable of the environment. The name counts as it is written; where there is none of that
/// spelling, the first that differs only in the case of ASCII letters.
std::optional<std::string> environmentValue(std::string_view name);

/// Whether a variable of the environment, spelt so, says anything.
bool isVariableSet(const char* name) noexcept;

}  // namespace mobrel
