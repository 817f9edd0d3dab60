// SPDX-License-Identifier: GPL-3.0-or-later
// The module object: a library or program as the window layer knows it.
#pragma once

#include "host/toolkit/export.h"
#include "host/toolkit/module_file.h"

#include <string>
#include <vector>

namespace owl {

/// A loaded library or program. GUI thread.
class ORVANTA_TOOLKIT_API TModule {
public:
    /// \param name file name, or a name of its own
    /// \param registered list it among the application's modules for as long as it lives
    TModule(const char* name, HINSTANCE instance, bool registered);
    virtual ~TModule();
    TModule(const TModule&) = delete;
    TModule& operator=(const TModule&) = delete;

    const std::string& GetName() const { return name_; }
    HINSTANCE GetInstance() const { return instance_; }

private:
    std::string name_;
    HINSTANCE instance_;
};

/// The application's modules in the order of their registration.
ORVANTA_TOOLKIT_API const std::vector<TModule*>& RegisteredModules();

} // namespace owl
