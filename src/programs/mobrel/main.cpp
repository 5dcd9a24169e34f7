// SPDX-License-Identifier: MIT
// The picture stage of a host program: no arguments, one task, end.
#include "platform/base/RuntimeError.hpp"
#include "platform/screen/DesktopModule.hpp"
#include "platform/system/Process.hpp"
#include "shell/fMain.hpp"

int main() {
    using namespace mobrel;
    turnWriteSignalsIntoErrors();
    const Desktop desktop = desktopOnDemand();
    fMain::setGlobalDesktop(desktop);
    fMain& window = fMain::Global();
    setErrorPolicy(window.Rules.errors);
    if (const auto text = fatalErrorOf([&] { window.Load(); })) {
        desktop.windows->message(*text, MessageIcon::Critical, MessageButtons::Ok);
        deleteTerminationFiles();
        return 1;
    }
    return window.exitStatus();
}
