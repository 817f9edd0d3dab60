// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gui.h"

#include "tests/support/qt/kept_log.h"
#include "tests/support/qt/scripted_user.h"

#include <QTest>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::review::Gui;
using orvanta::test::ScriptedUser;
using testing::ElementsAre;

TEST(Gui, ShowsAnErrorInAMessageBoxWithStopIcon) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    Gui().ShowError("night.edf: damaged");
    EXPECT_THAT(user.Messages(),
                ElementsAre(ScriptedUser::Message{nullptr, "night.edf: damaged", "Error", 16}));
}

TEST(Gui, LogsWhatItsBoxesTell) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk).AnswersMessage(owl::kIdOk);
    const orvanta::test::KeptLog log;
    Gui().ShowError("night.edf: 100 % damaged");
    Gui().ShowWarning("No events");
    EXPECT_THAT(log.Lines(), ElementsAre("night.edf: 100 % damaged", "No events"));
}

TEST(Gui, ShowsAWarningInAMessageBoxWithExclamationIcon) {
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    Gui().ShowWarning("No events");
    EXPECT_THAT(user.Messages(), ElementsAre(ScriptedUser::Message{nullptr, "No events", "Warning", 48}));
}

TEST(Gui, PutsMessagesOverTheActiveWindow) {
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ScriptedUser user;
    user.AnswersMessage(owl::kIdOk);
    Gui().ShowError("x");
    EXPECT_EQ(user.Messages().front().owner, HWND(&window));
}

TEST(Gui, GivesProgress) {
    EXPECT_NE(Gui().CreateProgress("Computing Spectra..."), nullptr);
}

} // namespace
