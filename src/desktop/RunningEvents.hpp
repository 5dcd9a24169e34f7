// SPDX-License-Identifier: MIT
// What a run leaves behind when its display goes away.
#pragma once

namespace mobrel {

/// Stands around everything that lets Qt take events in. Qt answers a lost display by leaving the process
/// from there, with status 1: the snapshots are deleted then, and the process ends as by SIGHUP.
class RunningEvents {
 public:
    RunningEvents();
    ~RunningEvents();
    RunningEvents(const RunningEvents&) = delete;
    RunningEvents& operator=(const RunningEvents&) = delete;
};

}  // namespace mobrel
