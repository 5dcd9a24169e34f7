// SPDX-License-Identifier: MIT
// The one function that programs call the module by.
#include <array>
#include <string>

#include "desktop/Application.hpp"
#include "desktop/Display.hpp"
#include "desktop/QtDesktop.hpp"
#include "dialogs/Dialogs.hpp"
#include "platform/screen/DesktopModule.hpp"

namespace mobrel {

namespace {

/// Qt keeps the arguments as long as the application lives. That is to the end of the process and beyond the
/// end of main, where parts of Qt that it would need for its own end are gone already.
bool openApplication(std::string platforms) {
    static std::string name = "mobrel";
    static std::string option = "-platform";
    static std::string value = std::move(platforms);
    static std::array<char*, 4> arguments = {name.data(), option.data(), value.data(), nullptr};
    static int count = 3;
    static const Application* const application = new Application(count, arguments.data());
    static_cast<void>(application);
    return QGuiApplication::platformName() != "offscreen";
}

}  // namespace

}  // namespace mobrel

extern "C" __attribute__((visibility("default"))) const mobrel::Desktop* mobrelOpenDesktop() {
    using namespace mobrel;
    std::string platforms = usablePlatforms();
    if (platforms.empty() || !openApplication(std::move(platforms))) return nullptr;
    registerDialogs();
    static const Desktop desktop = qtDesktop();
    return &desktop;
}
