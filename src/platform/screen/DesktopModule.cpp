// SPDX-License-Identifier: MIT
#include "platform/screen/DesktopModule.hpp"

#include <cstdio>
#include <string>

#include "platform/system/Files.hpp"
#include "platform/system/Module.hpp"

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
    const ModuleSymbol open = findModuleSymbol(file, kOpenDesktop);
    if (open.address == nullptr) return tellNoDesktop(open.failure.c_str());
    const Desktop* const desktop = reinterpret_cast<OpenDesktopFunction*>(open.address)();
    return desktop != nullptr ? desktop : tellNoDesktop("the display does not answer");
}

/// The desktop that is opened at the first need.
class ModuleOnDemand {
 public:
    const Desktop& opened() {
        if (m_opened.windows == nullptr) {
            const Desktop* const module = openModule();
            m_opened = module != nullptr ? *module : consoleDesktop();
        }
        return m_opened;
    }
    /// Null before.
    const Desktop* ifOpened() const { return m_opened.windows != nullptr ? &m_opened : nullptr; }

 private:
    Desktop m_opened{};
};

class WindowsOnDemand final : public Windows {
 public:
    explicit WindowsOnDemand(ModuleOnDemand& module) : m_module(module) {}

    MessageAnswer message(std::string_view text, MessageIcon icon, MessageButtons buttons) override {
        return opened().windows->message(text, icon, buttons);
    }

    bool showFilter(fMain& main, std::optional<int> id) override {
        return opened().windows->showFilter(main, id);
    }
    bool showTexturize(fMain& main) override { return opened().windows->showTexturize(main); }
    bool showResize(fMain& main) override { return opened().windows->showResize(main); }
    bool showOrientation(fMain& main) override { return opened().windows->showOrientation(main); }
    bool showPrint(fMain& main) override { return opened().windows->showPrint(main); }
    bool showProperties(fMain& main) override { return opened().windows->showProperties(main); }
    bool showAbout(fMain& main) override { return opened().windows->showAbout(main); }
    std::optional<FileAnswer> askForFile(fMain& main, const FileQuestion& question) override {
        return opened().windows->askForFile(main, question);
    }

    void setHourglass(bool on) override {
        m_isHourglass = on;
        if (m_module.ifOpened() != nullptr) m_module.opened().windows->setHourglass(on);
    }

 private:
    const Desktop& opened() {
        const bool isNew = m_module.ifOpened() == nullptr;
        const Desktop& desktop = m_module.opened();
        if (isNew) desktop.windows->setHourglass(m_isHourglass);
        return desktop;
    }

    ModuleOnDemand& m_module;
    bool m_isHourglass = false;
};

class ClipboardOnDemand final : public Clipboard {
 public:
    explicit ClipboardOnDemand(ModuleOnDemand& module) : m_module(module) {}

    void copyPicture(const PictureView& picture) override {
        consoleDesktop().clipboard->copyPicture(picture);
    }
    bool hasPicture() override { return m_module.opened().clipboard->hasPicture(); }
    std::unique_ptr<StdPicture> picture() override { return m_module.opened().clipboard->picture(); }

 private:
    ModuleOnDemand& m_module;
};

/// None can wait before the first window.
class PendingEventsOnDemand final : public PendingEvents {
 public:
    explicit PendingEventsOnDemand(const ModuleOnDemand& module) : m_module(module) {}
    void run() override {
        if (const Desktop* const desktop = m_module.ifOpened()) desktop->pendingEvents->run();
    }

 private:
    const ModuleOnDemand& m_module;
};

}  // namespace

Desktop desktopOnDemand() {
    static ModuleOnDemand module;
    static WindowsOnDemand windows(module);
    static ClipboardOnDemand clipboard(module);
    static PendingEventsOnDemand pendingEvents(module);
    return {&windows, &clipboard, &pendingEvents};
}

}  // namespace mobrel
