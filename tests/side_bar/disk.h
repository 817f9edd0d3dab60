// SPDX-License-Identifier: GPL-3.0-or-later
// Files that answer as a test says.
#pragma once

#include "host/toolkit/services.h"

#include <cerrno>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orvanta::test {

/// Takes the place of the system's files while it lives and writes down what is asked. A path that the test
/// does not name does not exist.
class Disk final : public owl::FileAccess {
public:
    Disk() : earlier_(owl::ReplaceServices(&services_)) { services_.files = this; }
    ~Disk() override { owl::ReplaceServices(earlier_); }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    int Access(const std::string& path, int mode) const override {
        asked_.emplace_back(path, mode);
        const auto found = writing_.find(path);
        if (found == writing_.end()) {
            return ENOENT;
        }
        return mode == kExists ? 0 : found->second;
    }
    int MakeFolders(const std::string& /*folder*/) const override { return EROFS; }
    int Remove(const std::string& file) const override {
        removed_.push_back(file);
        return EROFS;
    }
    std::vector<std::string> FilesIn(const std::string& folder, const std::string& ending) const override {
        listed_.emplace_back(folder, ending);
        return names_;
    }

    /// There is such a file; opening it for writing gives \p error.
    void Holds(const std::string& path, int error = 0) { writing_[path] = error; }
    /// Every folder lists these files, in this order.
    void Lists(std::vector<std::string> names) { names_ = std::move(names); }

    /// Path and mode.
    const std::vector<std::pair<std::string, int>>& Asked() const { return asked_; }
    /// Folder and ending.
    const std::vector<std::pair<std::string, std::string>>& Listed() const { return listed_; }
    /// Files that were to be removed; none was.
    const std::vector<std::string>& Removed() const { return removed_; }

private:
    owl::Services services_ = owl::CurrentServices();
    const owl::Services* earlier_;
    std::map<std::string, int> writing_;
    std::vector<std::string> names_;
    mutable std::vector<std::pair<std::string, int>> asked_;
    mutable std::vector<std::pair<std::string, std::string>> listed_;
    mutable std::vector<std::string> removed_;
};

} // namespace orvanta::test
