// SPDX-License-Identifier: MIT
#include "desktop/Boundary.hpp"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "desktop/MessageBox.hpp"
#include "platform/base/ScopedValue.hpp"
#include "platform/system/Process.hpp"

namespace mobrel {

namespace {

/// One that comes while another's box is open has none of its own.
void tell(std::string_view text) {
    static bool isOpen = false;
    if (isOpen) {
        std::fprintf(stderr, "mobrel: %s\n", std::string(text).c_str());
    } else {
        const ScopedValue open(isOpen, true);
        showMessage(text, MessageIcon::Critical, MessageButtons::Ok);
    }
}

[[noreturn]] void endRun(std::string_view text) {
    tell(text);
    deleteTerminationFiles();
    std::fflush(nullptr);
    std::_Exit(1);  // frames of the toolkit are still on the stack
}

}  // namespace

void handleError(std::string_view text) {
    if (errorPolicy() == ErrorPolicy::EndRun) endRun(text);
    tell(text);
}

}  // namespace mobrel
