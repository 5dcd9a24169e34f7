// SPDX-License-Identifier: MIT
#include "support/TableReporter.hpp"

#include <cstdio>
#include <string>

#include "support/PictureBench.hpp"

namespace mobrel::bench {

bool TableReporter::ReportContext(const Context&) {
    std::printf("%-32s %10s %10s %10s\n", "operation", "size", kPerPixel, kPerCopy);
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
            std::printf("%10.3f %10.2f\n", run.counters.at(kPerPixel).value, run.counters.at(kPerCopy).value);
        }
        std::fflush(stdout);
    }
}

}  // namespace mobrel::bench
