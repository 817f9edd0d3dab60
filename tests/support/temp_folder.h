// SPDX-License-Identifier: GPL-3.0-or-later
// A folder for the files of one test, removed with everything in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvanta::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Full path of \p name inside the folder; makes no file.
    std::string Path(std::string_view name) const;
    /// Writes (or replaces) a file, making the folders of its name; answers its full path.
    std::string Write(std::string_view name, std::string_view bytes) const;
    /// The bytes of a file inside the folder; a file that cannot be read fails the test.
    std::string Read(std::string_view name) const;

private:
    std::filesystem::path folder_;
};

} // namespace orvanta::test
