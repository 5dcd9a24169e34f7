// SPDX-License-Identifier: MIT
#include "programs/batch/run/Task.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>

#include "platform/system/Files.hpp"
#include "programs/batch/steps/Formats.hpp"
#include "programs/batch/steps/MessageText.hpp"

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
        case Placement::Nowhere:
            return {};
        case Placement::Beside:
        case Placement::Over:
            break;
    }
    const std::string_view name = lastPart(picture);
    return joinPath(options.folder, options.format ? targetName(name, *options.format) : std::string(name));
}

void refuseSharedTargets(std::vector<Task>& tasks) {
    std::unordered_map<std::string_view, const std::string*> pictureOfTarget;
    for (Task& task : tasks) {
        if (task.target.empty() || !task.refusal.empty()) continue;
        const auto [first, isFirst] = pictureOfTarget.try_emplace(task.target, &task.picture);
        if (!isFirst) task.refusal = "has the same target as " + onOneLine(*first->second);
    }
}

// A target that is there already may be, by a link, another picture of the run.
void refuseTargetsThatArePictures(std::vector<Task>& tasks) {
    std::unordered_map<std::string, const Task*> taskOfPicture;
    for (const Task& task : tasks) taskOfPicture.try_emplace(withoutLinks(task.picture), &task);
    for (Task& task : tasks) {
        const auto found = taskOfPicture.find(withoutLinks(task.target));
        if (found == taskOfPicture.end() || found->second->picture == task.picture) continue;
        task.refusal = "its target is the picture " + onOneLine(found->second->picture);
    }
}

}  // namespace

std::vector<Task> planTasks(const Options& options) {
    std::vector<Task> tasks;
    tasks.reserve(options.pictures.size());
    for (const std::string& picture : options.pictures) {
        tasks.push_back({picture, targetOf(picture, options), {}});
    }
    if (options.placement == Placement::Over) refuseTargetsThatArePictures(tasks);
    refuseSharedTargets(tasks);
    return tasks;
}

}  // namespace mobrel::batch
