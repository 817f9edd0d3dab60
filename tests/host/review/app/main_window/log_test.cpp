// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/log.h"

#include "host/review/cli/exit_status.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <QLoggingCategory>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

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

TEST(Logging, TakesMessagesOfSeveralThreadsWhileItComesAndGoes) {
    constexpr int kEach = 200;
    const test::KeptLog screen;
    const test::TempFolder folder;
    std::atomic<int> said = 0;
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 3; ++thread) {
            threads.emplace_back([&] {
                for (int i = 0; i < kEach; ++i) {
                    qWarning("message");
                    ++said;
                }
            });
        }
        while (said < 3 * kEach) {
            const Log log(folder.Path("log.txt"));
            for (const QString& line : Log::Lines()) {
                EXPECT_TRUE(line.endsWith(" warning message")) << line.toStdString();
            }
        }
    }
    EXPECT_EQ(screen.Lines().size(), 3 * kEach); // none is lost, and none told twice
}

TEST(Logging, RefusesAFileThatCannotBeWritten) {
    EXPECT_THROW(Log("/no/such/folder/log.txt"), cli::UsageError);
}

} // namespace
