// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/file_path.h"

#include <algorithm>

void FilePath::SetExt(const std::string& extension) {
    extension_ = extension.empty() || extension.front() == '.' ? extension : "." + extension;
}

void FilePath::SetFullPath(const std::string& path) {
    std::string text = path;
    std::replace(text.begin(), text.end(), '\\', Separator);
    const std::size_t nameAt = text.rfind(Separator) + 1; // 0 when there is no separator
    folder_ = text.substr(0, nameAt);
    name_ = text.substr(nameAt);
    const std::size_t dot = name_.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot > 0;
    extension_ = hasExtension ? name_.substr(dot) : "";
    name_.resize(name_.size() - extension_.size());
}
