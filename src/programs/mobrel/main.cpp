// SPDX-License-Identifier: MIT
// The picture stage of a host program: no arguments, one task, end.
#include "platform/DesktopModule.hpp"
#include "platform/Process.hpp"
#include "platform/RuntimeError.hpp"
#include "shell/fMain.hpp"

int main() {
    using namespace mobrel;
    turnWriteSignalsIntoErrors();
    const Desktop desktop = desktopOnDemand();
    fMain::setGlobalDesktop(desktop);
    fMain& window = fMain::Global();
    if (const auto text = fatalErrorOf([&] { window.Load(); })) {
        desktop.windows->message(*text, MessageIcon::Critical, MessageButtons::Ok);
        deleteTerminationFiles();
        return 1;
    }
    return window.exitStatus();
}
