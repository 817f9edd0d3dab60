// SPDX-License-Identifier: GPL-3.0-or-later
// The spectral-power module and the bridge to its classes, loaded at run time.
#pragma once

#include "host/platform/shared_library.h"

#include <string>

namespace orvanta::review {

class ModuleBridge;

/// The module's file name without ending.
constexpr const char* kModuleStem = "Orvanta64";

/// The bridge is loaded only after the module has agreed to the window layer's version, since it reaches into
/// the module's classes.
class ModuleLibrary {
public:
    /// \param folder of both libraries, with trailing separator
    /// \throws std::runtime_error "FILE: reason (remedy)"; the application goes on without the module
    explicit ModuleLibrary(const std::string& folder);

    ModuleBridge& Bridge() const { return *bridge_; }

private:
    platform::SharedLibrary module_;
    ModuleBridge* bridge_ = nullptr;
};

/// Folder of the application's own libraries, with trailing separator.
std::string LibraryFolder();

} // namespace orvanta::review
