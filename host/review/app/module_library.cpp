// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/module_library.h"

#include "host/platform/module_path.h"
#include "host/review/app/module_bridge.h"
#include "host/toolkit/version.h"

#include <cstdint>
#include <stdexcept>

namespace owl {
class TModule;
}

namespace orvanta::review {

namespace {

constexpr const char* kReinstall = "install program and module of the same release together";

std::string ModuleFile(const std::string& folder) {
    return folder + kModuleStem + ".so";
}

[[noreturn]] void Refuse(const std::string& file, const std::string& reason) {
    throw std::runtime_error(file + ": " + reason + " (" + kReinstall + ")");
}

/// \throws std::runtime_error unless the module agrees to this program's window layer
void CheckVersion(const platform::SharedLibrary& module, const std::string& file) {
    auto* modulePointer = module.Find<owl::TModule**(std::uint32_t)>("GetModulePtr");
    if (modulePointer == nullptr) {
        Refuse(file, "is no module of this program");
    }
    if (modulePointer(owl::OWLGetVersion()) == nullptr) {
        Refuse(file, "was built for another release of the window layer than this program's");
    }
}

} // namespace

ModuleLibrary::ModuleLibrary(const std::string& folder) : module_(ModuleFile(folder), kReinstall) {
    CheckVersion(module_, ModuleFile(folder));
    const std::string bridgeFile = folder + kBridgeLibrary;
    const platform::SharedLibrary library(bridgeFile, kReinstall);
    auto* bridge = library.Find<BridgeEntry>(kBridgeEntry);
    if (bridge == nullptr) {
        Refuse(bridgeFile, "is no bridge to the module");
    }
    bridge_ = bridge();
}

std::string LibraryFolder() {
    // Code of a host library, since this code may be part of a program.
    return platform::OwnFolder(reinterpret_cast<const void*>(&platform::OwnFolder));
}

} // namespace orvanta::review
