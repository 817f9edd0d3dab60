// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/log.h"

#include "host/review/cli/exit_status.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <QLoggingCategory>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using review::Log;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Logging, WritesMessagesWithTimeAndKind) {
    const test::TempFolder folder;
    {
        const Log log(folder.Path("log.txt"));
        qInfo("opened a.edf");
    }
    EXPECT_THAT(folder.Read("log.txt"), MatchesRegex("[0-9-]+T[0-9:.]+ info opened a.edf\n"));
}

TEST(Logging, AppendsToTheFile) {
    const test::TempFolder folder;
    folder.Write("log.txt", "before\n");
    {
        const Log log(folder.Path("log.txt"));
        qInfo("after");
    }
    EXPECT_THAT(folder.Read("log.txt"), MatchesRegex("before\n.* info after\n"));
}

TEST(Logging, PassesWarningsOn) {
    const test::KeptLog screen;
    const Log log("");
    qInfo("only in the log");
    qWarning("on the screen, too");
    EXPECT_THAT(screen.Lines(), ElementsAre("on the screen, too"));
    EXPECT_THAT(Log::Lines().join('\n').toStdString(), HasSubstr("info only in the log\n"));
}

TEST(Logging, KeepsTheLastThousand) {
    const Log log("");
    for (int i = 0; i < 1010; ++i) {
        qInfo("message %d", i);
    }
    EXPECT_EQ(Log::Lines().size(), 1000);
    EXPECT_TRUE(Log::Lines().first().endsWith("message 10"));
}

TEST(Logging, RefusesAFileThatCannotBeWritten) {
    EXPECT_THROW(Log("/no/such/folder/log.txt"), cli::UsageError);
}

} // namespace
