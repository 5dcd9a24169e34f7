// SPDX-License-Identifier: MIT
#include "programs/batch/run/TargetFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>

#include "platform/base/RuntimeError.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

[[noreturn]] void failAt(const std::string& path, const std::string& reason) {
    throw Failure("cannot write " + onOneLine(path) + ": " + reason);
}

std::string systemReason() {
    return std::generic_category().message(errno);
}

// Tells the system's own reason, which is clearer than what is left of it in an error number.
void checkFolder(const std::string& target) {
    const std::string folder = folderOf(target);
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) failAt(folder, systemReason());
}

template <typename Statement>
void namingTarget(const std::string& target, Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeError& error) {
        failAt(target, error.what());
    }
}

}  // namespace

void checkFree(const std::string& target) {
    struct stat status = {};
    if (::lstat(target.c_str(), &status) == 0) failAt(target, "it exists already (--force replaces it)");
}

void writeBeside(const std::string& target, const WriteContents& write) {
    checkFolder(target);
    namingTarget(target, [&] {
        createFile(target, [&](FileWriter& file) {
            write(file);
            file.close();  // its failure is told before that of a name that is taken
            checkFree(target);
        });
    });
}

void writeOver(const std::string& target, const WriteContents& write) {
    checkFolder(target);
    namingTarget(target, [&] { replaceFile(target, write); });
}

void writeInPlace(const std::string& target, const WriteContents& write) {
    struct stat status = {};
    if (::stat(target.c_str(), &status) != 0) failAt(target, systemReason());
    // A rename needs no right to write to the file it replaces, but a protected file stays as it is.
    if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) failAt(target, systemReason());
    checkFolder(target);
    namingTarget(target, [&] {
        const FileAttributes attributes{status.st_uid, status.st_gid, status.st_mode & 07777};
        replaceFileDurably(target, attributes, write);
    });
}

void writeToStandardOutput(const WriteContents& write) {
    namingTarget("standard output", [&] {
        FileWriter file(duplicateOf(STDOUT_FILENO));
        write(file);
        file.close();
    });
}

}  // namespace mobrel::batch
