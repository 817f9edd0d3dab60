// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/taper_names.h"

#include "host/toolkit/module_file.h"

#include <filesystem>
#include <string_view>

namespace orvanta::side_bar {

std::vector<std::string> TaperNamesIn(const std::string& folder, const owl::FileAccess& files) {
    constexpr std::string_view kExtension = ".wnd";
    std::vector<std::string> names = files.FilesIn(folder, std::string(kExtension));
    for (std::string& name : names) {
        name.resize(name.size() - kExtension.size());
    }
    return names;
}

std::string ModuleFolder() {
    const std::string file =
        owl::ModuleFileName(owl::InstanceOf(reinterpret_cast<const void*>(&ModuleFolder)));
    return std::filesystem::path(file).parent_path().string();
}

} // namespace orvanta::side_bar
