// SPDX-License-Identifier: MIT
#include "platform/pictures/Codecs.hpp"

#include <dlfcn.h>

namespace mobrel {

namespace {

constexpr char kModule[] = "libmobrel-codecs.so";

std::string moduleBesideThisLibrary() {
    Dl_info library{};
    ::dladdr(kModule, &library);  // any address of ours
    return joinPath(folderOf(library.dli_fname), kModule);
}

const Codecs& openModule() {
    const std::string beside = moduleBesideThisLibrary();
    void* const module = ::dlopen(fileExists(beside) ? beside.c_str() : kModule, RTLD_NOW | RTLD_LOCAL);
    const void* const functions = module == nullptr ? nullptr : ::dlsym(module, "mobrelCodecs");
    if (functions == nullptr) throw ModuleError(::dlerror());
    return *static_cast<const Codecs*>(functions);
}

}  // namespace

const Codecs& codecs() {
    static const Codecs& opened = openModule();
    return opened;
}

}  // namespace mobrel
