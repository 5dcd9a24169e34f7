// SPDX-License-Identifier: MIT
// The host-driven start: one number in, one task, one flag out.
#include <algorithm>
#include <array>
#include <optional>

#include "filters/FilterTable.hpp"
#include "platform/base/NumberText.hpp"
#include "shell/fMain.hpp"
#include "shell/mINI.hpp"

namespace mobrel {

namespace {

enum class TaskKind { FilterDialog, Depth, Sepia, Despeckle };

enum class Pointer { Normal, Hourglass };

/// What a number asks for. `argument` is the filter of a dialog, or the index of a depth command.
struct HostTask {
    int number;
    TaskKind kind;
    int argument;
    Pointer pointer;
};

constexpr HostTask dialogTask(int number, FilterId filter, Pointer pointer = Pointer::Hourglass) {
    return {number, TaskKind::FilterDialog, static_cast<int>(filter), pointer};
}

constexpr HostTask directTask(int number, TaskKind kind, int argument = 0) {
    return {number, kind, argument, Pointer::Hourglass};
}

// kept: 13 asks for the depth command 7, which does nothing; 20 and 21 open the dialogs of 5 and 7 again.
constexpr std::array<HostTask, 25> kHostTasks = {{
    dialogTask(5, FilterId::Emboss, Pointer::Normal),
    dialogTask(6, FilterId::Contour, Pointer::Normal),
    dialogTask(7, FilterId::Erode, Pointer::Normal),
    dialogTask(16, FilterId::ScanLines, Pointer::Normal),
    directTask(8, TaskKind::Depth, 0),
    directTask(9, TaskKind::Depth, 1),
    directTask(10, TaskKind::Depth, 2),
    directTask(11, TaskKind::Depth, 4),
    directTask(12, TaskKind::Depth, 5),
    directTask(13, TaskKind::Depth, 7),
    directTask(14, TaskKind::Depth, 8),
    directTask(15, TaskKind::Sepia),
    dialogTask(17, FilterId::Colorize),
    dialogTask(18, FilterId::Blur),
    dialogTask(19, FilterId::Sharpen),
    dialogTask(20, FilterId::Emboss),
    dialogTask(21, FilterId::Erode),
    dialogTask(22, FilterId::Contrast),
    dialogTask(23, FilterId::RgbLevels),
    dialogTask(24, FilterId::Diffuse),
    dialogTask(25, FilterId::Pixelize),
    dialogTask(26, FilterId::Noise),
    dialogTask(27, FilterId::Negative),
    directTask(28, TaskKind::Despeckle),
    dialogTask(29, FilterId::Brightness),
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
