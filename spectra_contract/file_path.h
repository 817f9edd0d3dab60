// SPDX-License-Identifier: GPL-3.0-or-later
// File names: folder, name and extension of a path.
#pragma once

#include "spectra_contract/api.h"

#include <string>

/// A path taken apart. Both "/" and "\\" are understood as separators; "/" is written.
class ORVANTA_API FilePath {
public:
    static constexpr char Separator = '/';

    FilePath() = default;
    explicit FilePath(const std::string& path) { SetFullPath(path); }

    /// Replaces the name without folder and extension.
    void SetFile(const std::string& name) { name_ = name; }
    /// Replaces the extension; a leading "." is added when missing, an empty text removes it.
    void SetExt(const std::string& extension);
    /// Name without folder and extension. A name that starts with "." and has no other "." has no extension.
    const std::string& GetFile() const { return name_; }
    /// Extension with its leading "."; empty when there is none.
    const std::string& GetExt() const { return extension_; }
    /// Folder with trailing separator; empty for a bare name.
    const std::string& GetFolder() const { return folder_; }
    std::string GetFullPath() const { return folder_ + name_ + extension_; }
    void SetFullPath(const std::string& path);

private:
    std::string folder_;
    std::string name_;
    std::string extension_;
};
