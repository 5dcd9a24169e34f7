// SPDX-License-Identifier: MIT
#include "platform/system/AtomicFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

namespace mobrel {

namespace {

constexpr mode_t kNewFile = 0666;
constexpr mode_t kPrivateFile = 0600;
constexpr int kMostNameTries = 1000;

// A new file beside its target, deleted at the end of its life unless it has taken the target's place.
class AsideFile {
 public:
    // The mode is under the process's mask.
    AsideFile(const std::string& target, mode_t mode) : m_target(target) {
        static std::atomic<unsigned> counter = static_cast<unsigned>(::getpid()) * 64;
        // Made from the folder alone, so that it fits wherever the target's own name does.
        const std::string prefix = target.substr(0, target.rfind('/') + 1) + ".mobrel-";
        for (int tries = 0; tries < kMostNameTries && !m_file.isOpen(); ++tries) {
            char digits[8];
            std::snprintf(digits, sizeof digits, "%06x", counter++ & 0xFFFFFFu);
            m_name = prefix + digits;
            m_file = openFile(m_name, O_WRONLY | O_CREAT | O_EXCL, mode);
            if (!m_file.isOpen() && errno != EEXIST) throwErrno(errno);
        }
        if (!m_file.isOpen()) throwErrno(EEXIST);
    }
    AsideFile(const AsideFile&) = delete;
    AsideFile& operator=(const AsideFile&) = delete;
    ~AsideFile() {
        if (!m_name.empty()) ::unlink(m_name.c_str());
    }

    // The file stays open beyond the writer, whose close tells of late errors.
    void fill(const WriteContents& write) const {
        FileWriter writer(duplicateOf(m_file.get()));
        write(writer);
        writer.close();
    }

    void setAttributes(const FileAttributes& attributes) const {
        // An owner can give a file to a group of his, but not away. The mode comes last: a new owner can cost
        // a part of it.
        if (::fchown(m_file.get(), attributes.owner, attributes.group) != 0) {
            constexpr auto kSameOwner = static_cast<uid_t>(-1);
            [[maybe_unused]] const int groupOnly = ::fchown(m_file.get(), kSameOwner, attributes.group);
        }
        if (::fchmod(m_file.get(), attributes.mode) != 0) throwErrno(errno);
    }

    void replaceTarget() {
        if (!isSystemName(m_target)) throwErrno(EINVAL);
        if (::rename(m_name.c_str(), m_target.c_str()) != 0) throwErrno(errno);
        m_name.clear();
    }

    void takeFreePlace() {
        if (!isSystemName(m_target)) throwErrno(EINVAL);
        const char* const name = m_name.c_str();
        if (::renameat2(AT_FDCWD, name, AT_FDCWD, m_target.c_str(), RENAME_NOREPLACE) == 0) {
            m_name.clear();
            return;
        }
        // Some file systems cannot do it in one; a second name, too, is refused where there is one.
        if (errno != EINVAL && errno != ENOSYS) throwErrno(errno);
        if (::link(name, m_target.c_str()) != 0) throwErrno(errno);
    }

 private:
    std::string m_target;
    std::string m_name;
    FileDescriptor m_file;
};

}  // namespace

void createFile(const std::string& target, const WriteContents& write) {
    AsideFile aside(target, kNewFile);
    aside.fill(write);
    aside.takeFreePlace();
}

void replaceFile(const std::string& target, const WriteContents& write) {
    AsideFile aside(target, kNewFile);
    aside.fill(write);
    aside.replaceTarget();
}

void replaceFile(const std::string& target, const FileAttributes& attributes, const WriteContents& write) {
    AsideFile aside(target, kPrivateFile);
    aside.fill(write);
    aside.setAttributes(attributes);
    aside.replaceTarget();
}

void replaceFileDurably(const std::string& target, const FileAttributes& attributes,
                        const WriteContents& write) {
    AsideFile aside(target, kPrivateFile);
    aside.fill([&](FileWriter& file) {
        write(file);
        aside.setAttributes(attributes);
        file.sync();
    });
    aside.replaceTarget();
}

}  // namespace mobrel
