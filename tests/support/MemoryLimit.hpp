// SPDX-License-Identifier: MIT
// A limit of the process's memory, for tests of files that lie about their size.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cstddef>
#include <fstream>

namespace mobrel::test {

/// Keeps the process from taking more memory than now and some: what asks for it gets std::bad_alloc.
class MemoryLimit {
 public:
    explicit MemoryLimit(std::size_t moreBytes) {
        std::ifstream statm("/proc/self/statm");
        std::size_t pages = 0;
        statm >> pages;
        getrlimit(RLIMIT_AS, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + moreBytes;
        m_isSet = pages > 0 && setrlimit(RLIMIT_AS, &limit) == 0;
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &m_before); }

    bool isSet() const { return m_isSet; }

 private:
    rlimit m_before{};
    bool m_isSet = false;
};

constexpr std::size_t kMiB = 1024 * 1024;

}  // namespace mobrel::test
