// SPDX-License-Identifier: GPL-3.0-or-later
// The window functions that are at hand.
#include "host/platform/folder_name.h"
#include "host/platform/module_path.h"
#include "host/signal_base/text.h"
#include "host/spectral_data/settings/tapers.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace orvanta::spectral {

namespace {

std::string& ChosenFolder() {
    static std::string folder;
    return folder;
}

/// The ".wnd" files of the folder by name, sorted without regard to case, ties by bytes.
std::vector<std::filesystem::path> Files() {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    std::filesystem::directory_iterator entry(GetTaperFolder(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unreadable;
        if (entry->is_regular_file(unreadable) &&
            signal::SameText(entry->path().extension().string(), ".wnd")) {
            files.push_back(entry->path());
        }
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) {
        const std::string nameA = a.stem().string(), nameB = b.stem().string();
        return std::pair(signal::LowerCase(nameA), nameA) < std::pair(signal::LowerCase(nameB), nameB);
    });
    return files;
}

} // namespace

std::string GetTaperFolder() {
    return ChosenFolder().empty() ? platform::OwnFolder(reinterpret_cast<const void*>(&ChosenFolder))
                                  : ChosenFolder();
}

void SetTaperFolder(const std::string& folder) {
    ChosenFolder() = folder.empty() ? folder : platform::WithSeparator(folder);
}

std::vector<std::string> ListTapers() {
    std::vector<std::string> names;
    for (const std::filesystem::path& file : Files()) {
        names.push_back(file.stem().string());
    }
    return names;
}

Taper FindTaper(const std::string& name) {
    const std::vector<std::filesystem::path> files = Files();
    auto found =
        std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.stem() == name; });
    if (found == files.end()) {
        found = std::find_if(files.begin(), files.end(),
                             [&](const auto& file) { return signal::SameText(file.stem().string(), name); });
    }
    if (found == files.end()) {
        std::string names;
        for (const std::filesystem::path& file : files) {
            names += (names.empty() ? "one of " : ", ") + file.stem().string();
        }
        throw std::runtime_error("there is no window function \"" + name + "\" (" +
                                 (names.empty() ? "put its .wnd file into " + GetTaperFolder() : names) +
                                 ")");
    }
    return Taper::Load(found->string());
}

} // namespace orvanta::spectral
