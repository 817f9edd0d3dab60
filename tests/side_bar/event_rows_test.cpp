// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/event_rows.h"
#include "tests/side_bar/settings_case.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using orvanta::side_bar::EventRow;
using orvanta::side_bar::EventRowsOf;
using orvanta::side_bar::RejectRowsOf;
using orvanta::side_bar::WholeSeconds;
using orvanta::test::SettingsCase;
using testing::ElementsAre;

XTimeInterval Seconds(double begin, double end) {
    return {XTime::FromSeconds(begin), XTime::FromSeconds(end)};
}

TEST(EventRows, CountStatesAndTheirWholeSecondsByLabel) {
    const SettingsCase given;
    EXPECT_THAT(EventRowsOf(given.events, EventClass::State),
                ElementsAre(EventRow{{"Asleep", EventClass::State, 2}, 2, 30},
                            EventRow{{"Awake", EventClass::State, 2}, 1, 5},
                            EventRow{{"bad", EventClass::State, 2}, 1, 2}));
}

TEST(EventRows, CountSpotsWithoutSeconds) {
    const SettingsCase given;
    EXPECT_THAT(EventRowsOf(given.events, EventClass::Spot),
                ElementsAre(EventRow{{"Blink", EventClass::Spot, 1}, 1, 0},
                            EventRow{{"Spike", EventClass::Spot, 1}, 3, 0}));
}

TEST(EventRows, OfWhatIsExcludedAreStatesThenChosenSpotsThenLabelsWithoutEvents) {
    const EventRow asleep{{"Asleep", EventClass::State}, 2, 30};
    const EventRow spike{{"Spike", EventClass::Spot}, 3};
    const EventRow asleepSpot{{"Asleep", EventClass::Spot}, 1};
    EXPECT_THAT(RejectRowsOf({asleep}, {asleepSpot, {{"Blink", EventClass::Spot}, 1}, spike},
                             {"Asleep", "Movement", "Spike"}),
                ElementsAre(asleep, spike, EventRow{{"Movement", EventClass::State}, 0, 0}));
}

TEST(EventRows, SumDurationsBeforeTheyAreDivided) {
    XTimeList intervals;
    intervals.push_back(Seconds(0, 0.6));
    intervals.push_back(Seconds(1, 1.6));
    EXPECT_EQ(WholeSeconds(intervals, 10), 1U);
    EXPECT_EQ(WholeSeconds({}, 10), 0U);
}

TEST(EventRows, SumDurationsIn32Bits) {
    XTimeList intervals;
    intervals.push_back(Seconds(0, 3e9));
    intervals.push_back(Seconds(0, 3e9));
    EXPECT_EQ(WholeSeconds(intervals, 1), 1705032704U); // 6e9 - 2^32
}

TEST(EventRows, HaveNoSecondsWithoutARate) {
    XTimeList intervals;
    intervals.push_back(Seconds(0, 60));
    EXPECT_EQ(WholeSeconds(intervals, 0), 0U);
}

} // namespace
