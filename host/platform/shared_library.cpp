// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/shared_library.h"

#include <filesystem>
#include <stdexcept>

#include <dlfcn.h>

namespace orvanta::platform {

namespace {

/// The loader's words, without the path where they begin with it.
std::string LoaderError(const std::string& path) {
    const char* text = dlerror();
    std::string reason = text != nullptr ? text : "unknown reason";
    if (reason.starts_with(path + ": ")) {
        reason.erase(0, path.size() + 2);
    }
    return reason;
}

} // namespace

SharedLibrary::SharedLibrary(const std::string& path, const std::string& remedy)
    : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) {
        std::error_code none;
        const std::string reason = std::filesystem::exists(path, none)
                                       ? "cannot be loaded: " + LoaderError(path)
                                       : std::string("no such file");
        throw std::runtime_error(path + ": " + reason + " (" + remedy + ")");
    }
}

void* SharedLibrary::Symbol(const char* name) const {
    return dlsym(handle_, name);
}

} // namespace orvanta::platform
