// SPDX-License-Identifier: MIT
#include "programs/batch/run/Run.hpp"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include "programs/batch/run/Interrupt.hpp"

namespace mobrel::batch {

namespace {

class Run {
 public:
    Run(const std::vector<Task>& tasks, JobLimits limits, const DoTask& work, const HearOutcome& hear)
        : m_tasks(tasks), m_limits(limits), m_work(work), m_hear(hear), m_outcomes(tasks.size()) {}

    void start() {
        const std::size_t others = std::min<std::size_t>(m_limits.jobs, m_tasks.size()) - 1;
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
            finish(index, m_work(m_tasks[index]));
        }
    }

    void finish(std::size_t index, Outcome outcome) {
        const std::scoped_lock lock(m_reporting);
        if (m_limits.stopOnError && outcome.status == Status::Failed) m_stopped = true;
        m_outcomes[index] = std::move(outcome);
        while (m_told < m_tasks.size() && m_outcomes[m_told]) tellNext();
    }

    void tellNext() {
        if (!m_hear(m_tasks[m_told], *m_outcomes[m_told])) m_stopped = true;
        m_outcomes[m_told] = Outcome();  // its text is told
        ++m_told;
    }

    void tellRest() {
        while (m_told < m_tasks.size()) {
            if (!m_outcomes[m_told]) m_outcomes[m_told].emplace();
            tellNext();
        }
    }

    const std::vector<Task>& m_tasks;
    const JobLimits m_limits;
    const DoTask& m_work;
    const HearOutcome& m_hear;

    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_stopped = false;

    std::mutex m_reporting;
    std::vector<std::optional<Outcome>> m_outcomes;
    std::size_t m_told = 0;
};

}  // namespace

void runTasks(const std::vector<Task>& tasks, JobLimits limits, const DoTask& work, const HearOutcome& hear) {
    if (!tasks.empty()) Run(tasks, limits, work, hear).start();
}

}  // namespace mobrel::batch
