// SPDX-License-Identifier: MIT
#include "platform/DesktopModule.hpp"

#include <dlfcn.h>

#include <cstdio>
#include <string>

#include "platform/Files.hpp"

namespace mobrel {

namespace {

constexpr const char* kModuleFile = "libmobrel-desktop.so";

bool isDisplayNamed() {
    return isVariableSet("DISPLAY") || isVariableSet("WAYLAND_DISPLAY") || isVariableSet("QT_QPA_PLATFORM");
}

const Desktop* tellNoDesktop(const char* reason) {
    std::fprintf(stderr, "mobrel: no window can be shown: %s\n", reason);
    return nullptr;
}

/// The module stays open until the process ends.
const Desktop* openModule() {
    if (!isDisplayNamed()) return nullptr;
    const std::string file = helperFile(kModuleFile);
    if (file.empty()) return tellNoDesktop((std::string(kModuleFile) + " is missing").c_str());
    void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) return tellNoDesktop(::dlerror());
    auto* const open = reinterpret_cast<OpenDesktopFunction*>(::dlsym(module, kOpenDesktop));
    if (open == nullptr) return tellNoDesktop(::dlerror());
    const Desktop* const desktop = open();
    return desktop != nullptr ? desktop : tellNoDesktop("the display does not answer");
}

class WindowsOnDemand final : public Windows {
 public:
    MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) override {
        return opened().windows->message(text, icon, buttons);
    }

    bool showDialog(std::string_view name, int id) override { return opened().windows->showDialog(name, id); }

    void setHourglass(bool on) override {
        m_isHourglass = on;
        if (m_opened.windows != nullptr) m_opened.windows->setHourglass(on);
    }

    void runPendingEvents() {
        if (m_opened.pendingEvents != nullptr) m_opened.pendingEvents->run();
    }

 private:
    const Desktop& opened() {
        if (m_opened.windows == nullptr) {
            const Desktop* const module = openModule();
            m_opened = module != nullptr ? *module : consoleDesktop();
            m_opened.windows->setHourglass(m_isHourglass);
        }
        return m_opened;
    }

    Desktop m_opened{};
    bool m_isHourglass = false;
};

/// None can wait before the first window.
class PendingEventsOnDemand final : public PendingEvents {
 public:
    explicit PendingEventsOnDemand(WindowsOnDemand& windows) : m_windows(windows) {}
    void run() override { m_windows.runPendingEvents(); }

 private:
    WindowsOnDemand& m_windows;
};

}  // namespace

Desktop desktopOnDemand() {
    static WindowsOnDemand windows;
    static PendingEventsOnDemand pendingEvents(windows);
    return {&windows, consoleDesktop().clipboard, &pendingEvents};
}

}  // namespace mobrel
