// SPDX-License-Identifier: MIT
// A limit of what files may hold, for tests of a full disk.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace mobrel::test {

/// While it lives no file may grow beyond the limit; a write that would make it do so fails.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(rlim_t bytes) : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
    rlimit m_before{};
    void (*m_handlerBefore)(int);
};

}  // namespace mobrel::test
