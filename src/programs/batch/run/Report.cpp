// SPDX-License-Identifier: MIT
#include "programs/batch/run/Report.hpp"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "programs/batch/run/Interrupt.hpp"
#include "programs/batch/run/JsonLine.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

constexpr std::chrono::milliseconds kProgressPause{100};
constexpr std::size_t kUsualColumns = 80;

// A reader that stops reading holds up the run, but not its end: after an interrupt nothing waits for it.
// Nor does a reader that ends; errno tells of that.
bool writeTo(int descriptor, std::string_view text) {
    constexpr int kPatience = 100;  // milliseconds until the next look for an interrupt
    while (!text.empty()) {
        pollfd ready = {descriptor, POLLOUT, 0};
        const int polled = ::poll(&ready, 1, kPatience);
        if (polled <= 0) {
            if (interrupted()) return false;
            continue;
        }
        // What a pipe that is ready takes without waiting.
        const ssize_t count = ::write(descriptor, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (count < 0 && errno != EINTR && errno != EAGAIN) return false;
        if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool canWriteOver(int descriptor) {
    const char* const terminal = std::getenv("TERM");
    return ::isatty(descriptor) == 1 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

std::size_t terminalColumns() {
    winsize size = {};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualColumns;
    return size.ws_col;
}

}  // namespace

void printError(const std::string& line) {
    writeTo(STDERR_FILENO, "mobrel-batch: " + line + "\n");
}

bool printOutput(const std::string& text) {
    if (writeTo(STDOUT_FILENO, text)) return true;
    if (!interrupted()) printError("standard output: " + std::generic_category().message(errno));
    return false;
}

Report::Report(std::size_t total, const Options& options)
    : m_total(total), m_options(options), m_onTerminal(!options.quiet && canWriteOver(STDERR_FILENO)) {
    showProgress();
}

bool Report::add(const Task& task, const Outcome& outcome) {
    if (outcome.status == Status::Done) ++m_done;
    if (outcome.status == Status::Failed) {
        ++m_failed;
        hideProgress();
        printError(onOneLine(task.picture) + ": " + onOneLine(outcome.error));
    }
    if (!outcome.note.empty() && !m_options.quiet) {
        hideProgress();
        printError(onOneLine(task.picture) + ": " + outcome.note);
    }
    const bool isTold = print(outputFor(task, outcome));
    if (Clock::now() - m_shownAt >= kProgressPause) showProgress();
    return isTold;
}

void Report::finish() {
    hideProgress();
    if (m_options.quiet) return;
    std::string text = countText();
    const std::size_t notDone = m_total - m_done - m_failed;
    if (notDone > 0) text += ", " + std::to_string(notDone) + " not done";
    writeTo(STDERR_FILENO, text + "\n");
}

std::string Report::outputFor(const Task& task, const Outcome& outcome) const {
    if (m_options.json) return jsonLine(task, outcome) + "\n";
    return outcome.info ? infoText(task.picture, *outcome.info) : std::string();
}

bool Report::print(const std::string& text) {
    if (text.empty() || m_outputFailed) return true;
    if (::isatty(STDOUT_FILENO) == 1) hideProgress();
    m_outputFailed = !printOutput(text);
    return !m_outputFailed;
}

void Report::showProgress() {
    if (!m_onTerminal) return;
    std::string text =
        std::to_string(m_done + m_failed) + " of " + std::to_string(m_total) + ": " + countText();
    // The last column stays free: some terminals go to the next line behind it.
    text.resize(std::min(text.size(), terminalColumns() - 1));
    const std::size_t width = text.size();
    if (width < m_shownWidth) text.resize(m_shownWidth, ' ');
    writeTo(STDERR_FILENO, "\r" + text);
    m_shownWidth = width;
    m_shownAt = Clock::now();
}

void Report::hideProgress() {
    if (m_shownWidth == 0) return;
    writeTo(STDERR_FILENO, "\r" + std::string(m_shownWidth, ' ') + "\r");
    m_shownWidth = 0;
}

std::string Report::countText() const {
    return std::to_string(m_done) + " done, " + std::to_string(m_failed) + " failed";
}

}  // namespace mobrel::batch
