// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/module_library.h"

#include "host/review/app/module_bridge.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include <dlfcn.h>

namespace {

using orvanta::review::LibraryFolder;
using orvanta::review::ModuleLibrary;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kRemedy = "(install program and module of the same release together)";

/// Why the module in this folder was refused; empty when it was not.
std::string Refusal(const std::string& folder) {
    try {
        const ModuleLibrary module(folder);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

bool IsLoaded(const std::string& file) {
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    return handle != nullptr && dlclose(handle) == 0;
}

TEST(ModuleLibrary, SaysThatTheModuleIsMissing) {
    const orvanta::test::TempFolder folder;
    EXPECT_EQ(Refusal(folder.Path("")), folder.Path("") + "Orvanta64.so: no such file " + kRemedy);
}

TEST(ModuleLibrary, SaysThatTheModuleCannotBeLoaded) {
    const orvanta::test::TempFolder folder;
    folder.Write("Orvanta64.so", "not a library");
    EXPECT_THAT(Refusal(folder.Path("")),
                AllOf(StartsWith(folder.Path("Orvanta64.so: cannot be loaded: ")), EndsWith(kRemedy)));
}

TEST(ModuleLibrary, RefusesALibraryThatIsNoModule) {
    EXPECT_EQ(Refusal(ORVANTA_NO_MODULE),
              ORVANTA_NO_MODULE "Orvanta64.so: is no module of this program " + std::string(kRemedy));
}

TEST(ModuleLibrary, RefusesAModuleForAnotherReleaseOfTheWindowLayer) {
    EXPECT_THAT(Refusal(ORVANTA_OTHER_RELEASE),
                HasSubstr("was built for another release of the window layer"));
}

TEST(ModuleLibrary, LoadsNoBridgeToAModuleThatItRefused) {
    const orvanta::test::TempFolder folder;
    std::filesystem::copy(ORVANTA_OTHER_RELEASE "Orvanta64.so", folder.Path("Orvanta64.so"));
    std::filesystem::copy(LibraryFolder() + "liborvanta_bridge.so", folder.Path("liborvanta_bridge.so"));
    EXPECT_NE(Refusal(folder.Path("")), "");
    EXPECT_FALSE(IsLoaded(folder.Path("liborvanta_bridge.so")));
}

TEST(ModuleLibrary, SaysThatTheBridgeIsMissing) {
    const orvanta::test::TempFolder folder;
    for (const auto& library : std::filesystem::directory_iterator(LibraryFolder())) {
        const std::string name = library.path().filename();
        if (name != "liborvanta_bridge.so") {
            std::filesystem::create_symlink(library.path(), folder.Path(name));
        }
    }
    EXPECT_EQ(Refusal(folder.Path("")), folder.Path("") + "liborvanta_bridge.so: no such file " + kRemedy);
}

TEST(ModuleLibrary, LoadsTheModuleBesideTheHostLibrariesAndItsBridge) {
    EXPECT_EQ(Refusal(LibraryFolder()), "");
    EXPECT_TRUE(IsLoaded(LibraryFolder() + "Orvanta64.so"));
    EXPECT_TRUE(IsLoaded(LibraryFolder() + "liborvanta_bridge.so"));
}

} // namespace
