// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/module_file.h"

#include <dlfcn.h>
#include <filesystem>

namespace owl {

HINSTANCE InstanceOf(const void* symbol) {
    Dl_info info{};
    return dladdr(symbol, &info) != 0 ? info.dli_fbase : nullptr;
}

std::string ModuleFileName(HINSTANCE instance) {
    Dl_info info{};
    std::error_code error;
    if (instance != nullptr) {
        const bool known = dladdr(instance, &info) != 0 && info.dli_fname != nullptr;
        const auto path = known ? std::filesystem::absolute(info.dli_fname, error) : std::filesystem::path();
        return error ? std::string() : path.string();
    }
    const auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : path.string();
}

} // namespace owl
