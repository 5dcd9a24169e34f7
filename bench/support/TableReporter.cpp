// SPDX-License-Identifier: MIT
#include "support/TableReporter.hpp"

#include <cstdio>
#include <string>

#include "peers/Peer.hpp"
#include "support/PictureBench.hpp"
#include "support/Targets.hpp"

namespace mobrel::bench {
namespace {

/// `row` is group/operation/size. Targets count at this size.
constexpr const char* kTargetSize = "4000x3000";

void printTarget(const std::string& row) {
    const std::size_t first = row.find('/');
    const std::size_t last = row.rfind('/');
    const auto target = targetOf(row.substr(first + 1, last - first - 1));
    if (target && row.substr(last + 1) == kTargetSize) {
        std::printf(" %10.1f", *target);
    } else {
        std::printf(" %10s", "");
    }
}

void printCounter(const benchmark::BenchmarkReporter::Run& run, const std::string& name) {
    const auto counter = run.counters.find(name);
    if (counter != run.counters.end()) {
        std::printf(" %15.3f", counter->second.value);
    } else {
        std::printf(" %15s", "");
    }
}

}  // namespace

bool TableReporter::ReportContext(const Context&) {
    std::printf("%-32s %10s %10s %10s %10s", "operation", "size", kPerPixel, kPerCopy, "at most");
    for (const Peer& peer : peers()) std::printf(" %15s", peer.name.c_str());
    std::printf("\n");
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& report) {
    for (const Run& run : report) {
        const std::string& row = run.run_name.function_name;
        const std::size_t slash = row.rfind('/');
        ++m_rows;
        std::printf("%-32s %10s ", row.substr(0, slash).c_str(), row.substr(slash + 1).c_str());
        if (run.error_occurred) {
            ++m_errors;
            std::printf("%s\n", run.error_message.c_str());
        } else {
            std::printf("%10.3f %10.2f", run.counters.at(kPerPixel).value, run.counters.at(kPerCopy).value);
            printTarget(row);
            for (const Peer& peer : peers()) printCounter(run, peer.name);
            std::printf("\n");
        }
        std::fflush(stdout);
    }
}

}  // namespace mobrel::bench
