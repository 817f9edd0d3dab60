// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/time_axis.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta::spectrum_view;

TEST(RoundTimes, TakeTheSmallestStepThatIsNotTooMany) {
    EXPECT_EQ(RoundTimes(0, 120, 5), (TimeTicks{30, {0, 30, 60, 90, 120}}));
    EXPECT_EQ(RoundTimes(0, 120, 4), (TimeTicks{60, {0, 60, 120}}));
    EXPECT_EQ(RoundTimes(80940, 95340, 4), (TimeTicks{3600, {82800, 86400, 90000, 93600}}));
    EXPECT_EQ(RoundTimes(0, 0.5, 3), (TimeTicks{0.2, {0, 0.2, 0.4}}));
    EXPECT_EQ(RoundTimes(0, 300000, 3), (TimeTicks{172800, {0, 172800}}));
}

TEST(RoundTimes, AreNoneWithoutARangeOrRoom) {
    EXPECT_TRUE(RoundTimes(5, 5, 9).at_s.empty());
    EXPECT_TRUE(RoundTimes(0, 10, 1).at_s.empty());
    EXPECT_TRUE(RoundTimes(0, std::numeric_limits<double>::quiet_NaN(), 9).at_s.empty());
}

TEST(TimeText, ShowsTheClockAsFinelyAsTheSteps) {
    EXPECT_EQ(TimeText(84600, 3600), "23:30");
    EXPECT_EQ(TimeText(84605, 5), "23:30:05");
    EXPECT_EQ(TimeText(84605.2, 0.2), "23:30:05.2");
    EXPECT_EQ(TimeText(86400, 3600), "00:00");
    EXPECT_EQ(TimeText(91800, 1800), "01:30");
}

} // namespace
