// SPDX-License-Identifier: MIT
// The host-driven start: one number in, one task, one flag out.
#include <algorithm>
#include <array>
#include <optional>

#include "platform/base/NumberText.hpp"
#include "shell/fMain.hpp"
#include "shell/mINI.hpp"

namespace mobrel {

namespace {

enum class TaskKind { FilterDialog, Depth, Sepia, Despeckle };

enum class Pointer { Normal, Hourglass };

/// What a number asks for. `argument` is the filter id of a dialog, or the index of a depth command.
struct HostTask {
    int number;
    TaskKind kind;
    int argument;
    Pointer pointer = Pointer::Hourglass;
};

constexpr std::array<HostTask, 25> kHostTasks = {{
    {5, TaskKind::FilterDialog, 10, Pointer::Normal},
    {6, TaskKind::FilterDialog, 4, Pointer::Normal},
    {7, TaskKind::FilterDialog, 11, Pointer::Normal},
    {16, TaskKind::FilterDialog, 23, Pointer::Normal},
    {8, TaskKind::Depth, 0},
    {9, TaskKind::Depth, 1},
    {10, TaskKind::Depth, 2},
    {11, TaskKind::Depth, 4},
    {12, TaskKind::Depth, 5},
    {13, TaskKind::Depth, 7},
    {14, TaskKind::Depth, 8},
    {15, TaskKind::Sepia, 0},
    {17, TaskKind::FilterDialog, 3},
    {18, TaskKind::FilterDialog, 1},
    {19, TaskKind::FilterDialog, 25},
    {20, TaskKind::FilterDialog, 10},
    {21, TaskKind::FilterDialog, 11},
    {22, TaskKind::FilterDialog, 5},
    {23, TaskKind::FilterDialog, 20},
    {24, TaskKind::FilterDialog, 8},
    {25, TaskKind::FilterDialog, 16},
    {26, TaskKind::FilterDialog, 14},
    {27, TaskKind::FilterDialog, 13},
    {28, TaskKind::Despeckle, 0},
    {29, TaskKind::FilterDialog, 2},
}};

/// The task of a text, or nothing for a number without one. kept: a text that is no number fails the
/// first comparison, and what follows that comparison is the first task.
std::optional<HostTask> taskOf(const std::string& filter) {
    const auto number = numberOf(filter);
    if (!number) return kHostTasks.front();
    const auto* task = std::find_if(kHostTasks.begin(), kHostTasks.end(),
                                    [&](const HostTask& t) { return *number == t.number; });
    return task == kHostTasks.end() ? std::nullopt : std::optional(*task);
}

}  // namespace

/// Each statement that fails is skipped, and the next one runs.
void fMain::pvHostStart() {
    const auto task = taskOf(ConfigRead(kHandoffSection, "Filter"));
    if (!task) return pvTail();
    if (task->pointer == Pointer::Hourglass) setHourglass(true);
    switch (task->kind) {
        case TaskKind::FilterDialog:
            if (!m_desktop.windows->showFilter(*this, task->argument)) refuseHostTask();
            return;
        case TaskKind::Depth:
            skipErrors([&] { mnuColorsz(task->argument); });
            break;
        case TaskKind::Sepia:
            skipErrors([&] { mnuColorFilters(2); });
            break;
        case TaskKind::Despeckle:
            skipErrors([&] { mnuDefinitions(7); });
            break;
    }
    pvTail();
}

void fMain::pvTail() {
    skipErrors([&] { mnuFiles(1); });
    writeWinState();
    skipErrors([&] { Unload(); });
    setHourglass(false);
}

/// The end of a run whose task cannot be done: temp.bmp and WinState stay as they are.
void fMain::refuseHostTask() {
    m_exitStatus = 1;
    Unload();
}

}  // namespace mobrel
