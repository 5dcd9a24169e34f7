// SPDX-License-Identifier: MIT
#include "platform/system/Process.hpp"

#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace mobrel {

namespace {

constexpr std::array<int, 3> kEndingSignals = {SIGTERM, SIGINT, SIGHUP};

// What the handler needs lies ready in static memory: it may call nothing that allocates.
struct TerminationFiles {
    std::array<char, 4096> name{};
    std::size_t digitsAt = 0;
    int count = 0;
};
TerminationFiles g_files;

sigset_t endingSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : kEndingSignals) sigaddset(&set, signal);
    return set;
}

void endBySignal(int signal) {
    deleteTerminationFiles();
    std::signal(signal, SIG_DFL);
    raise(signal);
}

void listen(int signal) {
    struct sigaction present {};
    sigaction(signal, nullptr, &present);
    if (present.sa_handler == SIG_IGN) return;
    struct sigaction action {};
    action.sa_handler = endBySignal;
    action.sa_mask = endingSignals();
    sigaction(signal, &action, nullptr);
}

}  // namespace

std::int32_t uniqueProcessHandle() {
    // Process numbers stay below 2^22. The last byte tells apart copies that share a temporary folder
    // but not their process numbers, as in containers.
    std::uint8_t salt = 0;
    if (getrandom(&salt, 1, GRND_NONBLOCK) != 1) salt = 0;
    return 1'000'000'000 + static_cast<std::int32_t>(getpid() % (1 << 22)) * 256 + salt;
}

void turnWriteSignalsIntoErrors() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
}

void deleteOnTermination(const std::string& prefix, int count, const std::string& suffix) {
    const HoldTermination hold;
    g_files.count = 0;
    const std::size_t length = prefix.size() + 3 + suffix.size();
    if (length + 1 > g_files.name.size()) return;  // longer than a path can be
    const std::string name = prefix + "000" + suffix;
    std::memcpy(g_files.name.data(), name.c_str(), name.size() + 1);
    g_files.digitsAt = prefix.size();
    g_files.count = count;
    for (const int signal : kEndingSignals) listen(signal);
}

void deleteTerminationFiles() noexcept {
    const int savedErrno = errno;
    char* digits = g_files.name.data() + g_files.digitsAt;
    for (int i = 0; i < g_files.count; ++i) {
        digits[0] = static_cast<char>('0' + i / 100);
        digits[1] = static_cast<char>('0' + i / 10 % 10);
        digits[2] = static_cast<char>('0' + i % 10);
        unlink(g_files.name.data());
    }
    errno = savedErrno;
}

HoldTermination::HoldTermination() {
    const sigset_t set = endingSignals();
    pthread_sigmask(SIG_BLOCK, &set, &m_earlier);
}

HoldTermination::~HoldTermination() {
    pthread_sigmask(SIG_SETMASK, &m_earlier, nullptr);
}

}  // namespace mobrel
