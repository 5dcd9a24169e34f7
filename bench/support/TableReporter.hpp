// SPDX-License-Identifier: MIT
// Prints the rows of a run as one table.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace mobrel::bench {

class TableReporter : public benchmark::BenchmarkReporter {
 public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& report) override;

    int rows() const { return m_rows; }
    int errors() const { return m_errors; }

 private:
    int m_rows = 0;
    int m_errors = 0;
};

}  // namespace mobrel::bench
