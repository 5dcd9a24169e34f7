// SPDX-License-Identifier: MIT
#include "platform/system/Module.hpp"

#include <dlfcn.h>

namespace mobrel {

ModuleSymbol findModuleSymbol(const std::string& file, const char* name) {
    void* const module = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const address = module == nullptr ? nullptr : ::dlsym(module, name);
    if (address == nullptr) return {nullptr, ::dlerror()};
    return {address};
}

}  // namespace mobrel
