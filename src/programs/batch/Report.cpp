// SPDX-License-Identifier: MIT
#include "programs/batch/Report.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include "programs/batch/Json.hpp"
#include "programs/batch/Words.hpp"

namespace mobrel::batch {

namespace {

constexpr std::chrono::milliseconds kProgressPause{100};
constexpr std::size_t kUsualColumns = 80;

void writeTo(std::FILE* stream, const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
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
    writeTo(stderr, "mobrel-batch: " + line + "\n");
}

bool printOutput(const std::string& text) {
    errno = 0;
    writeTo(stdout, text);
    if (std::ferror(stdout) == 0) return true;
    printError("standard output: " + std::generic_category().message(errno));
    return false;
}

Report::Report(std::size_t total, const Options& options)
    : m_total(total),
      m_json(options.json),
      m_quiet(options.quiet),
      m_onTerminal(!options.quiet && canWriteOver(STDERR_FILENO)) {
    showProgress();
}

bool Report::add(const Task& task, const Outcome& outcome) {
    if (outcome.status == Status::Done) ++m_done;
    if (outcome.status == Status::Failed) {
        ++m_failed;
        hideProgress();
        printError(onOneLine(task.picture) + ": " + onOneLine(outcome.error));
    }
    const bool told = !m_json || m_outputFailed || printJson(task, outcome);
    if (Clock::now() - m_shownAt >= kProgressPause) showProgress();
    return told;
}

void Report::finish() {
    hideProgress();
    if (m_quiet) return;
    std::string text = countText();
    const std::size_t notDone = m_total - m_done - m_failed;
    if (notDone > 0) text += ", " + std::to_string(notDone) + " not done";
    writeTo(stderr, text + "\n");
}

bool Report::printJson(const Task& task, const Outcome& outcome) {
    if (::isatty(STDOUT_FILENO) == 1) hideProgress();
    m_outputFailed = !printOutput(jsonLine(task, outcome) + "\n");
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
    writeTo(stderr, "\r" + text);
    m_shownWidth = width;
    m_shownAt = Clock::now();
}

void Report::hideProgress() {
    if (m_shownWidth == 0) return;
    writeTo(stderr, "\r" + std::string(m_shownWidth, ' ') + "\r");
    m_shownWidth = 0;
}

std::string Report::countText() const {
    return std::to_string(m_done) + " done, " + std::to_string(m_failed) + " failed";
}

}  // namespace mobrel::batch
