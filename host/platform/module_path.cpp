// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/module_path.h"

#include "spectra_contract/file_path.h"

#include <filesystem>

#include <dlfcn.h>
#include <link.h>

namespace orvanta::platform {

std::string OwnFolder(const void* symbol) {
    Dl_info info{};
    void* extra = nullptr;
    if (symbol == nullptr || dladdr1(symbol, &info, &extra, RTLD_DL_LINKMAP) == 0 || extra == nullptr) {
        return {};
    }
    // The program itself has no name there, only what it was called with, which may be relative.
    const char* loaded = static_cast<const link_map*>(extra)->l_name;
    if (loaded == nullptr || *loaded == '\0') {
        const std::string program = ExecutablePath();
        return program.substr(0, program.rfind(FilePath::Separator) + 1);
    }
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(loaded, error);
    if (error) {
        return {};
    }
    return (path.lexically_normal().parent_path() / "").string();
}

std::string ExecutablePath() {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : path.string();
}

} // namespace orvanta::platform
