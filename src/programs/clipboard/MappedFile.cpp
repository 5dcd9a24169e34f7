// SPDX-License-Identifier: MIT
#include "programs/clipboard/MappedFile.hpp"

#include <sys/mman.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/system/Files.hpp"

namespace mobrel::clipboard {

MappedFile::MappedFile(int descriptor) {
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0) throwErrno(errno);
    m_size = static_cast<std::size_t>(status.st_size);
    // Private, though it is only read: a file that is sealed against writing refuses a shared mapping
    // through a descriptor that may write.
    void* const mapped = ::mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (mapped == MAP_FAILED) throwErrno(errno);
    m_bytes = static_cast<const std::uint8_t*>(mapped);
}

MappedFile::~MappedFile() {
    ::munmap(const_cast<std::uint8_t*>(m_bytes), m_size);
}

}  // namespace mobrel::clipboard
