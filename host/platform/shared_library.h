// SPDX-License-Identifier: GPL-3.0-or-later
// Libraries that are loaded when they are needed.
#pragma once

#include "spectra_contract/api.h"

#include <string>

namespace orvanta::platform {

/// A library loaded at run time. It stays loaded until the process ends, since objects of its classes may
/// live that long.
class ORVANTA_API SharedLibrary {
public:
    /// \param path with folder
    /// \param remedy what the user can do when it cannot be loaded
    /// \throws std::runtime_error "PATH: reason (REMEDY)"
    SharedLibrary(const std::string& path, const std::string& remedy);

    /// The function exported under this name; null when there is none.
    template <typename Function>
    Function* Find(const char* name) const {
        return reinterpret_cast<Function*>(Symbol(name));
    }

private:
    void* Symbol(const char* name) const;

    void* handle_;
};

} // namespace orvanta::platform
