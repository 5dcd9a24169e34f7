// SPDX-License-Identifier: MIT
#include "desktop/Boundary.hpp"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "desktop/MessageBox.hpp"
#include "platform/system/Process.hpp"

namespace mobrel {

namespace {

[[noreturn]] void endRun(std::string_view text) {
    static bool isEnding = false;
    if (!std::exchange(isEnding, true)) {
        showMessage(text, MessageIcon::Critical, MessageButtons::Ok);
    } else {
        std::fprintf(stderr, "mobrel: %s\n", std::string(text).c_str());
    }
    deleteTerminationFiles();
    std::fflush(nullptr);
    std::_Exit(1);  // frames of the toolkit are still on the stack
}

}  // namespace

void handleError(std::string_view text) {
    if (errorPolicy() == ErrorPolicy::EndRun) endRun(text);
    showMessage(text, MessageIcon::Critical, MessageButtons::Ok);
}

}  // namespace mobrel
