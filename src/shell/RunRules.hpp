// SPDX-License-Identifier: MIT
// What differs between the runs of a program for a host and for a person.
#pragma once

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

/// Whom a run is for.
enum class Start {
    /// A host: the picture is temp.bmp, the task stands in config.ini, and the run ends with it.
    Host,
    /// A person: no picture is opened and no task is done; the window stays loaded.
    Editor,
};

/// As they are in a host's run. A program takes them over before its first window, the errors' into
/// setErrorPolicy().
struct RunRules {
    /// A dialog that works on the document unloads the main window when it is closed.
    bool dialogEndsRun = true;
    /// A filter makes true colour of a palette document. Hosts get their depth back.
    bool filterMakesTrueColour = false;
    /// Save deletes the old file before it writes the new one; otherwise the new one replaces it when it is
    /// whole.
    bool saveDeletesFirst = true;
    ErrorPolicy errors = ErrorPolicy::EndRun;
};

}  // namespace mobrel
