// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/module.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int marker = 0;

TEST(TModule, KnowsItsNameAndInstance) {
    const owl::TModule module("some.so", &marker, false);
    EXPECT_EQ(module.GetName(), "some.so");
    EXPECT_EQ(module.GetInstance(), &marker);
}

TEST(TModule, IsRegisteredForAsLongAsItLives) {
    {
        owl::TModule first("first", nullptr, true);
        owl::TModule second("second", nullptr, true);
        EXPECT_THAT(owl::RegisteredModules(), ElementsAre(&first, &second));
    }
    EXPECT_THAT(owl::RegisteredModules(), IsEmpty());
}

TEST(TModule, IsNotRegisteredWithoutBeingAsked) {
    const owl::TModule module("some.so", nullptr, false);
    EXPECT_THAT(owl::RegisteredModules(), IsEmpty());
}

TEST(ModuleFileName, OfTheProgramIsItsOwn) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe").string();
    EXPECT_EQ(owl::ModuleFileName(nullptr), program);
    EXPECT_EQ(std::filesystem::canonical(owl::ModuleFileName(owl::InstanceOf(&marker))), program);
}

TEST(ModuleFileName, OfALibraryIsTheLibrarys) {
    const std::string file =
        owl::ModuleFileName(owl::InstanceOf(reinterpret_cast<void*>(&owl::ModuleFileName)));
    EXPECT_EQ(std::filesystem::path(file).filename(), "liborvanta_toolkit.so");
    EXPECT_TRUE(std::filesystem::path(file).is_absolute());
}

TEST(ModuleFileName, OfNothingIsEmpty) {
    int onTheStack = 0;
    EXPECT_EQ(owl::InstanceOf(&onTheStack), nullptr);
    EXPECT_EQ(owl::ModuleFileName(&onTheStack), "");
}

} // namespace
