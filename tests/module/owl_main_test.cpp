// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/owl_main.h"

#include "tests/support/qt/scripted_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::test::ScriptedUser;

TEST(OwlMain, SaysThatAModuleIsNoApplication) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    char name[] = "orvanta";
    char* arguments[] = {name, nullptr};
    EXPECT_EQ(OwlMain(1, arguments), 0);
    const ScriptedUser::Message expected{nullptr, "You have accidently used the dummy version of OwlMain.",
                                         "Error", 16};
    EXPECT_THAT(user.Messages(), testing::ElementsAre(expected));
}

TEST(OwlMain, IsSilentWithoutArguments) {
    const ScriptedUser user;
    EXPECT_EQ(OwlMain(0, nullptr), 0);
    EXPECT_THAT(user.Messages(), testing::IsEmpty());
}

} // namespace
