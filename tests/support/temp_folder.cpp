// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace orvanta::test {

TempFolder::TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orvanta-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), name);
    }
    folder_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string TempFolder::Path(std::string_view name) const {
    return (folder_ / name).string();
}

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path path = folder_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    EXPECT_TRUE(stream) << "cannot write " << path;
    return path.string();
}

std::string TempFolder::Read(std::string_view name) const {
    std::ifstream stream(folder_ / name, std::ios::binary);
    EXPECT_TRUE(stream) << "cannot read " << folder_ / name;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace orvanta::test
