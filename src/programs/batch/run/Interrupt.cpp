// SPDX-License-Identifier: MIT
#include "programs/batch/run/Interrupt.hpp"

#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstring>

#include "platform/system/Process.hpp"

namespace mobrel::batch {

namespace {

// A handler may touch only such.
std::atomic<bool> g_interrupted = false;
std::atomic<const char*> g_lastWords = nullptr;
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<const char*>::is_always_lock_free);

void onSignal(int) {
    g_interrupted = true;
    const char* const words = g_lastWords;
    if (words == nullptr) return;
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, words, std::strlen(words));
    ::_exit(kInterruptStatus);
}

void listen(int signal) {
    struct sigaction present = {};
    ::sigaction(signal, nullptr, &present);
    if (present.sa_handler == SIG_IGN) return;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

void listenForSignals() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) listen(signal);
    turnWriteSignalsIntoErrors();
}

bool interrupted() noexcept {
    return g_interrupted.load(std::memory_order_relaxed);
}

void endAtInterrupt(const char* lastWords) {
    g_lastWords = lastWords;
}

}  // namespace mobrel::batch
