// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/chart_view/maps/epoch_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::chart::EpochSteps;
using orvanta::chart::Playing;

XTimeInterval Seconds(double begin, double end) {
    return {XTime::FromSeconds(begin), XTime::FromSeconds(end)};
}

XTimeList List(std::initializer_list<XTimeItem> items) {
    XTimeList list;
    for (const XTimeItem& item : items) {
        list.push_back(item);
    }
    return list;
}

TEST(EpochSteps, CountsGapsToo) {
    EXPECT_EQ(EpochSteps().Count(), 0U);
    EXPECT_EQ(EpochSteps(List({{Seconds(0, 1), 0}, {Seconds(3, 4), 3}})).Count(), 4U);
    EXPECT_EQ(EpochSteps(List({{Seconds(0, 1), 4294967295U}})).Count(), 4294967296U);
}

TEST(EpochSteps, LastStretchEndsWithTheLastEpoch) {
    const EpochSteps steps(List({{Seconds(9, 10), 9}}));
    EXPECT_EQ(steps.LastStart(4), 6U);
    EXPECT_EQ(steps.LastStart(10), 0U);
    EXPECT_EQ(steps.LastStart(11), 0U);
}

TEST(EpochSteps, NumbersAStretchFromZero) {
    const EpochSteps steps(List({{Seconds(0, 1), 0},
                                 {Seconds(2, 3), 2},
                                 {Seconds(2.5, 3.5), 2},
                                 {Seconds(3, 4), 3},
                                 {Seconds(5, 6), 5}}));
    EXPECT_EQ(steps.Stretch(2, 3), List({{Seconds(2, 3), 0}, {Seconds(2.5, 3.5), 0}, {Seconds(3, 4), 1}}));
    EXPECT_TRUE(steps.Stretch(1, 1).empty());
    EXPECT_TRUE(steps.Stretch(6, 4).empty());
    EXPECT_TRUE(steps.Stretch(0, 0).empty());
}

TEST(EpochSteps, SortsEpochsAndKeepsTheOrderWithinOne) {
    const EpochSteps steps(List({{Seconds(7, 8), 1}, {Seconds(4, 5), 0}, {Seconds(6, 7), 1}}));
    EXPECT_EQ(steps.Stretch(0, 2), List({{Seconds(4, 5), 0}, {Seconds(7, 8), 1}, {Seconds(6, 7), 1}}));
}

TEST(EpochSteps, TimeReachesFromTheEarliestBeginToTheLatestEnd) {
    const EpochSteps steps(List({{Seconds(2, 9), 0}, {Seconds(1, 3), 0}, {Seconds(4, 5), 1}}));
    EXPECT_EQ(steps.Time(0, 2), Seconds(1, 9));
    EXPECT_EQ(steps.Time(1, 1), Seconds(4, 5));
    EXPECT_EQ(steps.Time(2, 5), std::nullopt);
}

TEST(PlayingCartoon, ShowsWhatIsDueAtItsSpeed) {
    const Playing playing{3, 1000, 25};
    EXPECT_EQ(playing.At(1000, 100, false), 3U);
    EXPECT_EQ(playing.At(1039, 100, false), 3U);
    EXPECT_EQ(playing.At(1040, 100, false), 4U);
    EXPECT_EQ(playing.At(2000, 100, false), 28U);
}

TEST(PlayingCartoon, DoesNotGoBackWithTheClock) {
    EXPECT_EQ((Playing{3, 1000, 25}.At(900, 100, false)), 3U);
}

TEST(PlayingCartoon, WaitsUntilTheNextIsDue) {
    const Playing playing{0, 1000, 25};
    EXPECT_EQ(playing.Wait(1000), 40);
    EXPECT_EQ(playing.Wait(1039), 1);
    EXPECT_EQ(playing.Wait(1040), 40);
    EXPECT_EQ(playing.Wait(1130), 30);
}

TEST(PlayingCartoon, IsOverBeyondTheLastStretch) {
    const Playing playing{8, 0, 1};
    EXPECT_EQ(playing.At(2000, 10, false), 10U);
    EXPECT_EQ(playing.At(3000, 10, false), std::nullopt);
}

TEST(PlayingCartoon, BeginsAgainInALoop) {
    const Playing playing{8, 0, 1};
    EXPECT_EQ(playing.At(3000, 10, true), 0U);
    EXPECT_EQ(playing.At(15000, 10, true), 1U); // once around and on
}

} // namespace
