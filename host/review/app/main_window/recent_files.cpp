// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/recent_files.h"

#include "host/review/app/main_window/text_setting.h"

namespace orvanta::review {

namespace {

std::string Key(std::size_t index) {
    return "RecentFile" + std::to_string(index + 1);
}

} // namespace

RecentFiles::RecentFiles(GenericPlatform& platform) : platform_(platform) {
    for (std::size_t i = 0; i < kMost; ++i) {
        std::string path = ReadText(platform_, Key(i));
        if (!path.empty()) {
            paths_.push_back(std::move(path));
        }
    }
}

void RecentFiles::Add(const std::string& path) {
    std::erase(paths_, path);
    paths_.insert(paths_.begin(), path);
    paths_.resize(std::min(paths_.size(), kMost));
    Store();
}

void RecentFiles::Remove(const std::string& path) {
    std::erase(paths_, path);
    Store();
}

void RecentFiles::Clear() {
    paths_.clear();
    Store();
}

void RecentFiles::Store() {
    for (std::size_t i = 0; i < kMost; ++i) {
        WriteText(platform_, Key(i), i < paths_.size() ? paths_[i] : std::string());
    }
}

} // namespace orvanta::review
