// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/time_ruler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;
using testing::DoubleEq;
using testing::ElementsAre;

constexpr orvanta::signal::StartTime kMorning{2024, 3, 1, 9, 59, 50, 0};

TEST(RulerSteps, DrawsASecondsGridAndWritesTimesWhereTheyFit) {
    struct Case {
        double pixelsPerSecond;
        RulerSteps steps;
    };
    for (const Case& one : {
             Case{100, {1, 1}}, // ten seconds on 1000 pixels
             Case{50, {1, 2}},  // twenty seconds
             Case{10, {1, 10}}, // a hundred seconds
             Case{3, {30, 30}}, // seconds too narrow to be told apart
             Case{0.1, {1800, 1800}},
             Case{500, {0.1, 0.2}}, // two seconds
             Case{10000, {0.005, 0.01}},
         }) {
        EXPECT_EQ(StepsOf(one.pixelsPerSecond, 90), one.steps) << one.pixelsPerSecond;
    }
}

TEST(RulerTicks, StandOnMultiplesOfTheStep) {
    EXPECT_THAT(TicksOf(9.5, 3, 1), ElementsAre(10, 11, 12));
    EXPECT_THAT(TicksOf(10, 2, 1), ElementsAre(10, 11, 12));
    EXPECT_THAT(TicksOf(0.1, 0.3, 0.1),
                ElementsAre(DoubleEq(0.1), DoubleEq(0.2), DoubleEq(0.1 * 3), DoubleEq(0.4)));
}

TEST(RulerTicks, EndWhereNobodyCouldTellThemApart) {
    EXPECT_EQ(TicksOf(0, 1e9, 0.001).size(), 10000);
}

TEST(ClockTimeText, ShowsTheTimeOfDayWithTheDecimalsThatTheStepNeeds) {
    EXPECT_EQ(ClockTimeText(12, 1, kMorning), "10:00:02");
    EXPECT_EQ(ClockTimeText(12.25, 0.1, kMorning), "10:00:02.2");
    EXPECT_EQ(ClockTimeText(12.25, 0.05, kMorning), "10:00:02.25");
    EXPECT_EQ(ClockTimeText(12.25, 0.005, kMorning), "10:00:02.250");
    EXPECT_EQ(ClockTimeText(86400, 1, kMorning), "09:59:50");
}

TEST(ClockTimeText, CountsFromTheStartWithoutATimeOfDay) {
    EXPECT_EQ(ClockTimeText(3723, 1, {}), "01:02:03");
}

TEST(ElapsedText, ShowsSecondsAndFromAMinuteOnHours) {
    EXPECT_EQ(ElapsedText(5, 1), "5 s");
    EXPECT_EQ(ElapsedText(5.5, 0.5), "5.5 s");
    EXPECT_EQ(ElapsedText(60, 1), "0:01:00");
    EXPECT_EQ(ElapsedText(36000, 1), "10:00:00");
    EXPECT_EQ(ElapsedText(90.25, 0.05), "0:01:30.25");
}

} // namespace
