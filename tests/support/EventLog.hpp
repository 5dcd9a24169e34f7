// SPDX-License-Identifier: MIT
// Writes down the progress events of long pixel work, so that whole runs can be compared.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace mobrel::test {

/// The events of one or more runs in the order they came. It must outlive the sources it is attached to,
/// or at least their last event.
class EventLog {
 public:
    EventLog() = default;
    EventLog(const EventLog&) = delete;  // sources keep its address
    EventLog& operator=(const EventLog&) = delete;

    /// Hears the events Progress and ProgressEnd of a filter object or a surface.
    template <typename Source>
    void attach(Source& source) {
        source.Progress.connect([this](std::int32_t value) { progress(value); });
        source.ProgressEnd.connect([this] { progressEnd(); });
    }

    void progress(std::int32_t value) { m_events.emplace_back(value); }
    void progressEnd() { m_events.emplace_back(std::nullopt); }
    void clear() { m_events.clear(); }

    bool isEmpty() const { return m_events.empty(); }
    bool operator==(const EventLog& other) const { return m_events == other.m_events; }

    /// The values of Progress and the word "end" for ProgressEnd, as in "0 1 2 end".
    std::string toString() const {
        std::string text;
        for (const std::optional<std::int32_t>& event : m_events) {
            if (!text.empty()) text += ' ';
            text += event ? std::to_string(*event) : "end";
        }
        return text;
    }

    /// How a failed comparison shows the log.
    friend void PrintTo(const EventLog& log, std::ostream* out) { *out << '"' << log.toString() << '"'; }

 private:
    std::vector<std::optional<std::int32_t>> m_events;  // nothing stands for ProgressEnd
};

}  // namespace mobrel::test
