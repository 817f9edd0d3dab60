// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/console_gui.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

using orvanta::platform::ConsoleGui;

class ConsoleGuiTest : public testing::Test {
protected:
    std::string Taken() {
        std::string text = stream_.str();
        stream_.str("");
        return text;
    }
    ConsoleGui::Options Terminal() {
        ConsoleGui::Options options;
        options.terminal = true;
        options.seconds = [this] { return now_; };
        return options;
    }

    std::ostringstream stream_;
    double now_ = 1000;
};

TEST_F(ConsoleGuiTest, WritesMessagesAsLines) {
    const ConsoleGui gui(stream_, {});
    gui.ShowError("a.edf: empty (choose another file)");
    gui.ShowWarning("old file");
    EXPECT_EQ(stream_.str(), "orvanta: a.edf: empty (choose another file)\norvanta: warning: old file\n");
}

TEST_F(ConsoleGuiTest, ShowsNoProgressInAPipe) {
    const ConsoleGui gui(stream_, {});
    EXPECT_EQ(gui.CreateProgress("Computing"), nullptr);
    EXPECT_EQ(stream_.str(), "");
}

TEST_F(ConsoleGuiTest, ShowsShareRateAndTimeLeftOnATerminal) {
    const ConsoleGui gui(stream_, Terminal());
    const auto progress = gui.CreateProgress("Computing");
    now_ += 2;
    progress->SetPosition(0.4);
    EXPECT_EQ(Taken(), "\rComputing  40 %  20 %/s  3 s left\x1b[K");
}

TEST_F(ConsoleGuiTest, TellsTheRateInTheUnitOfTheWork) {
    ConsoleGui::Options options = Terminal();
    options.work = 36000;
    options.work_unit = "s";
    const ConsoleGui gui(stream_, options);
    const auto progress = gui.CreateProgress("Computing");
    now_ += 90;
    progress->SetPosition(0.25);
    EXPECT_EQ(Taken(), "\rComputing  25 %  100 s/s  4 min 30 s left\x1b[K");
}

TEST_F(ConsoleGuiTest, EndsTheLineWithTheTimeItTook) {
    const ConsoleGui gui(stream_, Terminal());
    auto progress = gui.CreateProgress("Computing");
    now_ += 3700;
    progress->SetPosition(1);
    progress.reset();
    EXPECT_EQ(Taken(), "\rComputing  100 %  0.027 %/s  in 1 h 01 min\x1b[K\n");
}

TEST_F(ConsoleGuiTest, DrawsNoMoreThanTenTimesASecond) {
    const ConsoleGui gui(stream_, Terminal());
    const auto progress = gui.CreateProgress("Computing");
    progress->SetPosition(0);
    EXPECT_EQ(Taken(), "\rComputing  0 %\x1b[K");
    now_ += 0.05;
    progress->SetPosition(0.1);
    EXPECT_EQ(Taken(), "");
    now_ += 0.45;
    progress->SetPosition(0.5);
    EXPECT_EQ(Taken(), "\rComputing  50 %  100 %/s  1 s left\x1b[K");
}

TEST_F(ConsoleGuiTest, PutsMessagesOnALineOfTheirOwn) {
    const ConsoleGui gui(stream_, Terminal());
    const auto progress = gui.CreateProgress("Computing");
    progress->SetPosition(0);
    gui.ShowError("failed");
    EXPECT_EQ(stream_.str(), "\rComputing  0 %\x1b[K\norvanta: failed\n");
}

TEST_F(ConsoleGuiTest, TakesANewText) {
    const ConsoleGui gui(stream_, Terminal());
    const auto progress = gui.CreateProgress("Computing");
    progress->SetText("Saving");
    progress->SetPosition(0);
    EXPECT_EQ(stream_.str(), "\rSaving  0 %\x1b[K");
}

TEST_F(ConsoleGuiTest, KeepsTheShareInRange) {
    const ConsoleGui gui(stream_, Terminal());
    const auto progress = gui.CreateProgress("Computing");
    for (const double odd : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        now_ += 1;
        progress->SetPosition(odd);
        EXPECT_EQ(Taken(), "\rComputing  0 %\x1b[K");
    }
    now_ += 2;
    progress->SetPosition(7);
    EXPECT_EQ(Taken(), "\rComputing  100 %  25 %/s  in 4 s\x1b[K");
}

TEST_F(ConsoleGuiTest, LeavesNothingBehindWhenNothingWasDrawn) {
    const ConsoleGui gui(stream_, Terminal());
    gui.CreateProgress("Computing").reset();
    EXPECT_EQ(stream_.str(), "");
}

} // namespace
