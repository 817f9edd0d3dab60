// SPDX-License-Identifier: GPL-3.0-or-later
// The state below lasts as long as the process: every case runs in a process of its own.
#include "module/module_object.h"

#include "host/toolkit/module.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using orvanta::module::Attach;
using orvanta::module::Detach;
using orvanta::module::MessageModule;
using orvanta::module::ModulePointer;

class ModuleObject : public testing::Test {
protected:
    ModuleObject() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    static HINSTANCE Program() { return owl::InstanceOf(reinterpret_cast<const void*>(&Attach)); }
    static HINSTANCE Toolkit() {
        return owl::InstanceOf(reinterpret_cast<const void*>(&owl::ModuleFileName));
    }
    /// Ends the process; each failure has already been told on its standard error.
    [[noreturn]] static void EndProcess() { std::exit(HasFailure() ? 1 : 0); }
};

#define EXPECT_IN_NEW_PROCESS(statements)                                                                    \
    EXPECT_EXIT(                                                                                             \
        {                                                                                                    \
            statements;                                                                                      \
            EndProcess();                                                                                    \
        },                                                                                                   \
        testing::ExitedWithCode(0), "")

TEST_F(ModuleObject, HasNoMessageModuleBeforeTheFirstUser) {
    EXPECT_IN_NEW_PROCESS(EXPECT_EQ(MessageModule(), nullptr));
}

TEST_F(ModuleObject, KeepsTheMessageModuleUntilTheLastUserLeaves) {
    EXPECT_IN_NEW_PROCESS({
        Attach(Program());
        Attach(Program());
        Detach();
        EXPECT_NE(MessageModule(), nullptr);
        Detach();
        EXPECT_EQ(MessageModule(), nullptr);
    });
}

TEST_F(ModuleObject, IgnoresMoreLeavingThanComing) {
    EXPECT_IN_NEW_PROCESS({
        Attach(Program());
        Detach();
        Detach();
        Attach(Program());
        EXPECT_NE(MessageModule(), nullptr);
        Detach();
        EXPECT_EQ(MessageModule(), nullptr);
    });
}

TEST_F(ModuleObject, NamesTheMessageModuleOrvanta) {
    EXPECT_IN_NEW_PROCESS({
        Attach(Program());
        EXPECT_EQ(MessageModule()->GetName(), "Orvanta");
        EXPECT_EQ(MessageModule()->GetInstance(), Program());
    });
}

TEST_F(ModuleObject, IsBuiltOnceOnly) {
    EXPECT_IN_NEW_PROCESS({
        Attach(Toolkit());
        owl::TModule* first = *ModulePointer();
        EXPECT_EQ(first->GetName(), owl::ModuleFileName(Toolkit()));
        Detach();
        Attach(Program());
        EXPECT_EQ(*ModulePointer(), first);
        EXPECT_EQ(first->GetName(), owl::ModuleFileName(Toolkit()));
    });
}

TEST_F(ModuleObject, OutlivesTheMessageModule) {
    EXPECT_IN_NEW_PROCESS({
        Attach(Program());
        Detach();
        EXPECT_EQ(owl::RegisteredModules().size(), 1U);
        EXPECT_EQ(*ModulePointer(), owl::RegisteredModules().front());
    });
}

TEST_F(ModuleObject, IsTheProgramsWhenItIsAskedForBeforeLoading) {
    EXPECT_IN_NEW_PROCESS({
        EXPECT_EQ((*ModulePointer())->GetName(), owl::ModuleFileName(nullptr));
        EXPECT_EQ((*ModulePointer())->GetInstance(), nullptr);
    });
}

} // namespace
