// SPDX-License-Identifier: MIT
// Plays the host of whole runs of mobrel, and prints what a run takes beside other programs that do the like
// with the same file: times in milliseconds, memory in mebibytes, the least of all rounds.
//
//     mobrel-bench-process [--size=WxH]... [--rounds=N] [--display=NAME]
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "process/Child.hpp"
#include "support/Arguments.hpp"
#include "support/ScratchFolder.hpp"

namespace {

namespace fs = std::filesystem;
using mobrel::bench::ChildCost;
using mobrel::bench::Measure;
using mobrel::bench::runChild;
using mobrel::bench::ScratchFolder;
using mobrel::bench::Size;

struct Plan {
    Measure measure{{}, 10};
    /// Where runs with a display go; none are made without. They leave their picture on its clipboard.
    std::string display;
};

std::optional<Plan> planOf(int argc, char** argv) {
    using namespace mobrel::bench;
    Plan plan;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (const auto taken = takeArgument(argument, plan.measure)) {
            if (!*taken) return std::nullopt;
        } else if (const auto display = valueOf(argument, "--display=")) {
            plan.display = *display;
        } else {
            return std::nullopt;
        }
    }
    if (plan.measure.sizes.empty()) plan.measure.sizes = {{640, 480}, {4000, 3000}};
    return plan;
}

void writeFile(const fs::path& path, std::string_view text) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << text;
    if (!stream.flush()) throw std::runtime_error("cannot write " + path.string());
}

/// A program under measurement, and the least that its runs took.
struct Contestant {
    std::string name;
    std::vector<std::string> command;
    int number = 0;
    std::string display{};
    ChildCost least{1e9, 1e9, 1L << 40, 0};

    void measureRound(const fs::path& folder, const fs::path& picture) {
        fs::copy_file(picture, folder / "temp.bmp", fs::copy_options::overwrite_existing);
        writeFile(folder / "config.ini", "[ZV-HARBORLY]\nFilter=" + std::to_string(number) + "\n");
        const ChildCost cost =
            runChild(command, {{"MOBREL_FOLDER", folder.string()}, {"DISPLAY", display}, {"TMPDIR", folder}});
        if (cost.exitStatus != 0) {
            throw std::runtime_error(name + " ended with " + std::to_string(cost.exitStatus));
        }
        least = {std::min(least.wallSeconds, cost.wallSeconds),
                 std::min(least.processorSeconds, cost.processorSeconds),
                 std::min(least.peakKibibytes, cost.peakKibibytes), 0};
    }
};

std::vector<Contestant> contestants(const fs::path& programs, const std::string& temp,
                                    const std::string& display) {
    const std::string mobrel = (programs / "mobrel").string();
    std::vector<Contestant> all = {
        {"read and write back", {(programs / "mobrel-bench-rewrite").string(), temp}},
        {"mobrel 28", {mobrel}, 28},
        {"mobrel 15", {mobrel}, 15}};
    if (!display.empty()) {
        all.push_back({"mobrel 28, display", {mobrel}, 28, display});
        all.push_back({"mobrel 15, display", {mobrel}, 15, display});
    }
    if (std::system("command -v gm >/dev/null 2>&1") == 0) {  // NOLINT(concurrency-mt-unsafe,cert-env33-c)
        all.push_back({"gm convert -despeckle", {"gm", "convert", temp, "-despeckle", temp}});
    }
    return all;
}

void measure(const Size& size, const Plan& plan, const fs::path& programs) {
    const ScratchFolder folder;
    const fs::path picture = folder.path() / "picture.bmp";
    const std::string painter = (programs / "mobrel-bench-picture").string();
    if (runChild({painter, size.toString(), picture.string()}, {}).exitStatus != 0) {
        throw std::runtime_error("cannot make a picture of " + size.toString());
    }
    auto all = contestants(programs, (folder.path() / "temp.bmp").string(), plan.display);
    for (int round = 0; round < plan.measure.rounds; ++round) {
        for (Contestant& contestant : all) contestant.measureRound(folder.path(), picture);
    }
    for (const Contestant& contestant : all) {
        std::printf("%-24s %12s %10.2f %10.2f %10.1f\n", contestant.name.c_str(), size.toString().c_str(),
                    contestant.least.wallSeconds * 1e3, contestant.least.processorSeconds * 1e3,
                    static_cast<double>(contestant.least.peakKibibytes) / 1024);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::optional<Plan> plan = planOf(argc, argv);
    if (!plan) {
        std::fputs("usage: mobrel-bench-process [--size=WxH]... [--rounds=N] [--display=NAME]\n", stderr);
        return 2;
    }
    try {
        const fs::path programs = fs::read_symlink("/proc/self/exe").parent_path();
        std::printf("%-24s %12s %10s %10s %10s\n", "program", "size", "wall ms", "cpu ms", "peak MiB");
        for (const Size& size : plan->measure.sizes) measure(size, *plan, programs);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mobrel-bench-process: %s\n", error.what());
        return 1;
    }
    return 0;
}
