// SPDX-License-Identifier: MIT
#include "desktop/Display.hpp"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

#include "platform/system/Files.hpp"

namespace mobrel {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool doesXServerAnswer() {
    if (variable("DISPLAY").empty()) return false;
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

bool doesSocketOpen(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return socket.isOpen() &&
           ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool doesWaylandAnswer() {
    const std::string name = variable("WAYLAND_DISPLAY");
    if (name.empty()) return false;
    return doesSocketOpen(name.front() == '/' ? name : variable("XDG_RUNTIME_DIR") + "/" + name);
}

// As Qt chooses: its window frames under Gnome's Wayland are no match for those of X.
bool isWaylandPreferred() {
    return variable("XDG_SESSION_TYPE") == "wayland" &&
           variable("XDG_CURRENT_DESKTOP").find("GNOME") == std::string::npos;
}

bool isUsable(const std::string& platform) {
    if (platform.starts_with("offscreen") || platform.starts_with("minimal")) return false;
    if (platform.starts_with("xcb")) return doesXServerAnswer();
    if (platform.starts_with("wayland")) return doesWaylandAnswer();
    return true;
}

/// Qt falls back to it where a plug-in is missing, instead of ending the process.
constexpr const char* kLastResort = "offscreen";

}  // namespace

std::string usablePlatforms() {
    const std::string chosen = variable("QT_QPA_PLATFORM");
    if (!chosen.empty()) return isUsable(chosen) ? chosen + ";" + kLastResort : "";

    const std::string x = doesXServerAnswer() ? "xcb;" : "";
    const std::string wayland = doesWaylandAnswer() ? "wayland;" : "";
    if (x.empty() && wayland.empty()) return {};
    return (isWaylandPreferred() ? wayland + x : x + wayland) + kLastResort;
}

}  // namespace mobrel
