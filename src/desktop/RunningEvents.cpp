// SPDX-License-Identifier: MIT
#include "desktop/RunningEvents.hpp"

#include <csignal>
#include <cstdlib>

#include "platform/system/Process.hpp"

namespace mobrel {

namespace {

int g_depth = 0;

void endIfDisplayWasLost() {
    if (g_depth == 0) return;
    deleteTerminationFiles();
    std::signal(SIGHUP, SIG_DFL);
    sigset_t hangUp;
    sigemptyset(&hangUp);
    sigaddset(&hangUp, SIGHUP);
    pthread_sigmask(SIG_UNBLOCK, &hangUp, nullptr);
    raise(SIGHUP);
}

}  // namespace

RunningEvents::RunningEvents() {
    // Behind the application object, so that it runs before that one's end.
    static const int isListening = std::atexit(endIfDisplayWasLost);
    static_cast<void>(isListening);
    ++g_depth;
}

RunningEvents::~RunningEvents() {
    --g_depth;
}

}  // namespace mobrel
