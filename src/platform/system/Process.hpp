// SPDX-License-Identifier: MIT
// The running process: its number, and what it leaves behind when it is told to end.
#pragma once

#include <csignal>
#include <cstdint>
#include <string>

namespace mobrel {

/// A number of ten digits that no other running copy has.
std::int32_t uniqueProcessHandle();

/// Makes writes to a pipe without a reader (SIGPIPE), and beyond the limit of a file's size (SIGXFSZ), fail
/// with an error instead of ending the process, which would then leave no WinState.
void turnWriteSignalsIntoErrors();

/// Files to delete when SIGTERM, SIGINT or SIGHUP ends the process: the names prefix + 000 + suffix to
/// prefix + (count - 1) + suffix, count at most 1000. The signals then end it as they would otherwise; one
/// that was ignored at the start stays ignored. A later call takes the place of an earlier one.
void deleteOnTermination(const std::string& prefix, int count, const std::string& suffix);

/// Deletes those files now, for an end by a fatal error.
void deleteTerminationFiles() noexcept;

/// Holds back those signals while it lives: a file that is replaced is replaced wholly.
class HoldTermination {
 public:
    HoldTermination();
    ~HoldTermination();
    HoldTermination(const HoldTermination&) = delete;
    HoldTermination& operator=(const HoldTermination&) = delete;

 private:
    sigset_t m_earlier;
};

}  // namespace mobrel
