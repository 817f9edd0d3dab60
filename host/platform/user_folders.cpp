// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/user_folders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace orvanta::platform {

namespace {

/// An absolute path from the environment, or an empty text: the base-directory rules ignore relative ones.
std::string FolderFromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

std::string Home() {
    if (std::string home = FolderFromEnvironment("HOME"); !home.empty()) {
        return home;
    }
    const passwd* user = getpwuid(getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

std::string Base(const char* variable, const char* belowHome) {
    const std::string folder = FolderFromEnvironment(variable);
    return folder.empty() ? Home() + belowHome : folder;
}

} // namespace

std::string DefaultSettingsFile() {
    return Base("XDG_CONFIG_HOME", "/.config") + "/orvanta/settings.ini";
}

std::string DefaultDataFolder() {
    return Base("XDG_DATA_HOME", "/.local/share") + "/orvanta/";
}

} // namespace orvanta::platform
