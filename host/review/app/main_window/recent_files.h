// SPDX-License-Identifier: GPL-3.0-or-later
// The recordings that were opened last.
#pragma once

#include <string>
#include <vector>

class GenericPlatform;

namespace orvanta::review {

/// Up to ten full paths, the latest first, kept among the user's settings.
class RecentFiles {
public:
    static constexpr std::size_t kMost = 10;

    /// \param platform must outlive this
    explicit RecentFiles(GenericPlatform& platform);

    const std::vector<std::string>& Paths() const { return paths_; }
    /// Puts it first, once.
    void Add(const std::string& path);
    void Remove(const std::string& path);
    void Clear();

private:
    void Store();

    GenericPlatform& platform_;
    std::vector<std::string> paths_;
};

} // namespace orvanta::review
