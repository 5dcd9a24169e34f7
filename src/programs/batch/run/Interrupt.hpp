// SPDX-License-Identifier: MIT
// The signals that ask the program to end.
#pragma once

namespace mobrel::batch {

/// Makes SIGINT, SIGTERM and SIGHUP set interrupted(); those that were ignored at the start stay so. A
/// closed pipe and a file that may not grow become errors of the writer, not ends of the process.
void listenForSignals();

/// True once such a signal has come.
bool interrupted() noexcept;

/// From now on such a signal ends the process at once with the exit status of an interrupt, having written
/// lastWords to standard error. For waiting on another process, which cannot be dropped. The text must
/// live as long as the process.
void endAtInterrupt(const char* lastWords);

inline constexpr int kInterruptStatus = 130;

}  // namespace mobrel::batch
