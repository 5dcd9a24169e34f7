// SPDX-License-Identifier: MIT
// Times the operations and prints one table: nanoseconds a pixel, and how many copies of the picture fit
// into that time. Ends with 1 when an operation gave wrong bytes.
//
//     mobrel-bench [--size=WxH]... [--rounds=N] [--benchmark_...] [OPERATION]...
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "canvas_bench.hpp"
#include "colours_bench.hpp"
#include "files_bench.hpp"
#include "filters_bench.hpp"
#include "support/Arguments.hpp"
#include "support/PictureBench.hpp"
#include "support/TableReporter.hpp"

namespace {

using mobrel::bench::Measure;
using mobrel::bench::PictureOperation;
using mobrel::bench::Size;

struct Plan {
    Measure measure;
    std::vector<std::string> names;
};

/// Nothing when an argument is not understood.
std::optional<Plan> planOf(int argc, char** argv) {
    using namespace mobrel::bench;
    Plan plan;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (const auto taken = takeArgument(argument, plan.measure)) {
            if (!*taken) return std::nullopt;
        } else if (argument.starts_with('-')) {
            return std::nullopt;
        } else {
            plan.names.emplace_back(argument);
        }
    }
    if (plan.measure.sizes.empty()) plan.measure.sizes = {{512, 512}, {1920, 1080}, {4000, 3000}};
    return plan;
}

std::vector<PictureOperation> allOperations() {
    std::vector<PictureOperation> all = mobrel::bench::filterOperations();
    for (auto& operation : mobrel::bench::colourOperations()) all.push_back(std::move(operation));
    for (auto& operation : mobrel::bench::fileOperations()) all.push_back(std::move(operation));
    for (auto& operation : mobrel::bench::canvasOperations()) all.push_back(std::move(operation));
    return all;
}

/// The operations of these names, all when there is none. Throws std::invalid_argument for one that does
/// not exist.
std::vector<PictureOperation> chosen(std::vector<PictureOperation> all,
                                     const std::vector<std::string>& names) {
    if (names.empty()) return all;
    std::vector<PictureOperation> found;
    for (const std::string& name : names) {
        const auto named = [&](const PictureOperation& operation) { return operation.name == name; };
        const auto at = std::find_if(all.begin(), all.end(), named);
        if (at == all.end()) throw std::invalid_argument("no operation " + name);
        found.push_back(*at);
    }
    return found;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const std::optional<Plan> plan = planOf(argc, argv);
    if (!plan) {
        std::fputs(
            "usage: mobrel-bench [--size=WxH]... [--rounds=N] [--benchmark_...] [OPERATION]...\n"
            "512x512, 1920x1080 and 4000x3000, and every operation, when none is named\n",
            stderr);
        return 2;
    }
    try {
        for (const auto& operation : chosen(allOperations(), plan->names)) {
            for (const Size& size : plan->measure.sizes)
                addPictureBench(operation, size, plan->measure.rounds);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mobrel-bench: %s\n", error.what());
        return 2;
    }
    mobrel::bench::TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.rows() == 0 || reporter.errors() > 0 ? 1 : 0;
}
