// SPDX-License-Identifier: MIT
#include "platform/pictures/Codecs.hpp"

#include <dlfcn.h>

#include "platform/system/Module.hpp"

namespace mobrel {

namespace {

constexpr char kModule[] = "libmobrel-codecs.so";

std::string moduleBesideThisLibrary() {
    Dl_info library{};
    ::dladdr(kModule, &library);  // any address of ours
    return joinPath(folderOf(library.dli_fname), kModule);
}

const Codecs& openCodecs() {
    const std::string beside = moduleBesideThisLibrary();
    const ModuleSymbol functions = findModuleSymbol(fileExists(beside) ? beside : kModule, "mobrelCodecs");
    if (functions.address == nullptr) throw ModuleError(functions.failure);
    return *static_cast<const Codecs*>(functions.address);
}

}  // namespace

const Codecs& codecs() {
    static const Codecs& opened = openCodecs();
    return opened;
}

}  // namespace mobrel
