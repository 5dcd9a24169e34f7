// SPDX-License-Identifier: MIT
// Libraries that are opened only when they are needed.
#pragma once

#include <string>

namespace mobrel {

/// What a module was opened for, or why it is not there.
struct ModuleSymbol {
    /// Null when there is none.
    void* address = nullptr;
    /// In words for a person; empty when there is none.
    std::string failure{};
};

/// Opens a module for as long as the process lives, and finds a symbol of it. A file without a '/' is
/// searched where the system finds libraries.
ModuleSymbol findModuleSymbol(const std::string& file, const char* name);

}  // namespace mobrel
