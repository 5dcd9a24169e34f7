// SPDX-License-Identifier: MIT
#include "programs/batch/Tasks.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>

#include "platform/Files.hpp"
#include "programs/batch/Formats.hpp"
#include "programs/batch/Words.hpp"

namespace mobrel::batch {

namespace {

std::string_view lastPart(std::string_view path) {
    return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

// A picture that is not there keeps its name; it fails when it is read.
std::string withoutLinks(const std::string& path) {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(path, error);
    return error ? path : real.string();
}

std::string targetOf(const std::string& picture, const Options& options) {
    switch (options.placement) {
        case Placement::InPlace:
            return withoutLinks(picture);
        case Placement::StandardOutput:
            return kStandardStream;
        case Placement::Beside:
        case Placement::Over:
            break;
    }
    return joinPath(options.folder, targetName(lastPart(picture), *options.format));
}

}  // namespace

std::vector<Task> planTasks(const Options& options) {
    std::vector<Task> tasks;
    tasks.reserve(options.pictures.size());
    std::unordered_map<std::string, const std::string*> pictureOfTarget;
    for (const std::string& picture : options.pictures) {
        Task task{picture, targetOf(picture, options), {}};
        const auto [first, isFirst] = pictureOfTarget.try_emplace(task.target, &picture);
        if (!isFirst) task.refusal = "has the same target as " + onOneLine(*first->second);
        tasks.push_back(std::move(task));
    }
    return tasks;
}

}  // namespace mobrel::batch
