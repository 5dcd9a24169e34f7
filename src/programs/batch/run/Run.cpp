// SPDX-License-Identifier: MIT
#include "programs/batch/run/Run.hpp"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>

#include "programs/batch/run/Interrupt.hpp"
#include "programs/batch/run/Outcome.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

class Run {
 public:
    Run(std::span<const Task> tasks, std::span<const StepAction> steps, const Options& options,
        Report& report)
        : m_tasks(tasks), m_steps(steps), m_options(options), m_report(report), m_outcomes(tasks.size()) {}

    void start() {
        const std::size_t others = std::min<std::size_t>(m_options.jobs, m_tasks.size()) - 1;
        {
            std::vector<std::jthread> threads;
            while (threads.size() < others && startThread(threads)) continue;
            doTasks();
        }
        tellRest();
    }

 private:
    // Where the system gives no more threads, fewer do.
    bool startThread(std::vector<std::jthread>& threads) {
        try {
            threads.emplace_back([this] { doTasks(); });
            return true;
        } catch (const std::system_error&) {
            return false;
        }
    }

    void doTasks() {
        while (!m_stopped && !interrupted()) {
            const std::size_t index = m_next++;
            if (index >= m_tasks.size()) return;
            finish(index, doTask(m_tasks[index], m_steps, m_options));
        }
    }

    void finish(std::size_t index, Outcome outcome) {
        const std::scoped_lock lock(m_reporting);
        if (m_options.stopOnError && outcome.status == Status::Failed) m_stopped = true;
        m_outcomes[index] = std::move(outcome);
        while (m_told < m_tasks.size() && m_outcomes[m_told]) tellNext();
    }

    void tellNext() {
        if (!m_report.add(m_tasks[m_told], *m_outcomes[m_told])) m_stopped = true;
        m_outcomes[m_told] = Outcome();  // its text is told
        ++m_told;
    }

    void tellRest() {
        while (m_told < m_tasks.size()) {
            if (!m_outcomes[m_told]) m_outcomes[m_told].emplace();
            tellNext();
        }
    }

    const std::span<const Task> m_tasks;
    const std::span<const StepAction> m_steps;
    const Options& m_options;
    Report& m_report;

    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_stopped = false;

    std::mutex m_reporting;
    std::vector<std::optional<Outcome>> m_outcomes;
    std::size_t m_told = 0;
};

StepAction prepareStep(const Step& step, const ReadOptions& reading) {
    try {
        return step.kind->prepare(step.values, reading);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const UsageError&) {
        throw;
    } catch (const std::exception& error) {
        throw UsageError(onOneLine(step.values.file) + ": " + error.what());
    }
}

}  // namespace

std::vector<StepAction> prepareSteps(const Options& options) {
    std::vector<StepAction> steps;
    for (const Step& step : options.steps) {
        if (interrupted()) break;
        steps.push_back(prepareStep(step, options.reading));
    }
    return steps;
}

void runTasks(std::span<const Task> tasks, std::span<const StepAction> steps, const Options& options,
              Report& report) {
    if (!tasks.empty()) Run(tasks, steps, options, report).start();
}

}  // namespace mobrel::batch
