// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/module_path.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvanta::platform {
namespace {

void Here() {}

TEST(ModulePath, ProgramPathNamesTheRunningProgram) {
    EXPECT_EQ(std::filesystem::path(ExecutablePath()).filename(), "platform_tests");
    EXPECT_TRUE(std::filesystem::is_regular_file(ExecutablePath()));
}

TEST(ModulePath, FolderOfOwnCodeIsTheProgramsFolder) {
    const std::string expected = (std::filesystem::path(ExecutablePath()).parent_path() / "").string();
    EXPECT_EQ(OwnFolder(reinterpret_cast<const void*>(&Here)), expected);
}

TEST(ModulePath, FolderOfALibrarysCodeHoldsTheLibrary) {
    const std::string folder = OwnFolder(reinterpret_cast<const void*>(&OwnFolder));
    EXPECT_TRUE(std::filesystem::path(folder).is_absolute());
    EXPECT_TRUE(std::filesystem::is_regular_file(folder + "liborvanta_platform.so"));
}

TEST(ModulePath, AnAddressOfNobodyHasNoFolder) {
    const int onTheStack = 0;
    EXPECT_EQ(OwnFolder(&onTheStack), "");
    EXPECT_EQ(OwnFolder(nullptr), "");
}

} // namespace
} // namespace orvanta::platform
