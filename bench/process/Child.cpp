// SPDX-License-Identifier: MIT
#include "process/Child.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace mobrel::bench {
namespace {

bool sets(std::string_view entry, std::string_view name) {
    return entry.size() > name.size() && entry.starts_with(name) && entry[name.size()] == '=';
}

std::vector<std::string> environmentWith(const std::vector<std::pair<std::string, std::string>>& variables) {
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const auto isSet = [&](const auto& variable) { return sets(*entry, variable.first); };
        if (std::ranges::none_of(variables, isSet)) environment.emplace_back(*entry);
    }
    for (const auto& [name, value] : variables) {
        if (!value.empty()) environment.emplace_back(name).append(1, '=').append(value);
    }
    return environment;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

double secondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

pid_t start(std::vector<std::string> command, std::vector<std::string> environment) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error = posix_spawnp(&child, command.front().c_str(), &actions, nullptr,
                                   pointersTo(command).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("cannot start " + command.front());
    return child;
}

}  // namespace

ChildCost runChild(const std::vector<std::string>& command,
                   const std::vector<std::pair<std::string, std::string>>& variables) {
    std::vector<std::string> environment = environmentWith(variables);
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = start(command, std::move(environment));
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child) throw std::runtime_error("lost " + command.front());
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {wall.count(), secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), usage.ru_maxrss,
            WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)};
}

}  // namespace mobrel::bench
