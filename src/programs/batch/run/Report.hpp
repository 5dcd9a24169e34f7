// SPDX-License-Identifier: MIT
// What the user hears of a run.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "programs/batch/run/Options.hpp"
#include "programs/batch/run/Outcome.hpp"
#include "programs/batch/run/Task.hpp"

namespace mobrel::batch {

/// Prints a line on standard error, with the program's name before it.
void printError(const std::string& line);

/// Prints on standard output at once. False when it cannot be written.
bool printOutput(const std::string& text);

/// Counts outcomes and tells of them: failures on standard error, what was asked for on standard output, and
/// how far the run is on a line of the terminal that is written over again and again. That line is there only
/// when standard error is a terminal that can do so. Not for several threads at once.
class Report {
 public:
    /// The options must live as long as the report.
    Report(std::size_t total, const Options& options);

    /// False when standard output, which is wanted, cannot be written.
    bool add(const Task& task, const Outcome& outcome);

    /// Takes the progress line away and prints the count. For the end of the run.
    void finish();

    /// False when a picture failed, was not done, or could not be told of.
    bool allDone() const noexcept { return m_done == m_total && !m_outputFailed; }

 private:
    using Clock = std::chrono::steady_clock;

    /// What standard output gets; mostly nothing.
    std::string outputFor(const Task& task, const Outcome& outcome) const;
    bool print(const std::string& text);
    void showProgress();
    void hideProgress();
    std::string countText() const;

    std::size_t m_total;
    const Options& m_options;
    bool m_onTerminal;

    std::size_t m_done = 0;
    std::size_t m_failed = 0;
    bool m_outputFailed = false;
    std::size_t m_shownWidth = 0;
    Clock::time_point m_shownAt;
};

}  // namespace mobrel::batch
