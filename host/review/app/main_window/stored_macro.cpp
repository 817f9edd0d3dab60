// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/stored_macro.h"

#include "host/review/app/macro_labels.h"
#include "host/review/cli/exit_status.h"
#include "spectra_contract/file_path.h"

#include <filesystem>

namespace orvanta::review {

namespace {

bool IsFile(const std::string& path) {
    std::error_code unknown;
    return std::filesystem::is_regular_file(path, unknown);
}

/// "Alpha", "Sleep"
std::string NamesIn(const std::string& folder) {
    std::string names;
    for (const SpectraMacro& macro : MacrosIn(folder)) {
        names += (names.empty() ? "\"" : ", \"") + FilePath(macro.GetFileName()).GetFile() + '"';
    }
    return names.empty() ? "no macro" : names;
}

} // namespace

SpectraMacro FindMacro(const std::string& nameOrPath, const std::string& folder) {
    const std::string stored = folder + nameOrPath + ".smx";
    if (!IsFile(nameOrPath) && !IsFile(stored)) {
        throw cli::UsageError("macro \"" + nameOrPath + "\": there is no such file and no stored macro (" +
                              folder + " has " + NamesIn(folder) + ')');
    }
    constexpr int kUnreadable = 2;
    SpectraMacro macro;
    if (macro.Load(IsFile(nameOrPath) ? std::filesystem::absolute(nameOrPath).string() : stored) ==
        kUnreadable) {
        throw cli::UsageError(macro.GetLastError());
    }
    return macro;
}

} // namespace orvanta::review
