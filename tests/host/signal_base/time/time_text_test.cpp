// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/time/time_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvanta::signal {
namespace {

constexpr StartTime kStart{2024, 2, 28, 23, 59, 58, 250'000};

TEST(MillisecondsOf, RoundsToTheNearest) {
    EXPECT_EQ(MillisecondsOf(256, 256), 1000);
    EXPECT_EQ(MillisecondsOf(1, 256), 4);       // 3.90625
    EXPECT_EQ(MillisecondsOf(1, 2000), 1);      // 0.5
    EXPECT_EQ(MillisecondsOf(-1, 2000), -1);    // -0.5
    EXPECT_EQ(MillisecondsOf(-100, 256), -391); // -390.625
}

TEST(MillisecondsOf, HasNoAnswerWithoutRate) {
    EXPECT_EQ(MillisecondsOf(100, 0), 0);
}

TEST(MillisecondsOf, StaysInReach) {
    EXPECT_EQ(MillisecondsOf(std::numeric_limits<std::int64_t>::max(), 1), 9'200'000'000'000'000);
    EXPECT_EQ(MillisecondsOf(std::numeric_limits<std::int64_t>::min(), 1), -9'200'000'000'000'000);
}

TEST(TimeText, ShowsHoursToMilliseconds) {
    EXPECT_EQ(TimeText(0), "00:00:00.000");
    EXPECT_EQ(TimeText(3'723'004), "01:02:03.004");
    EXPECT_EQ(TimeText(-1), "-00:00:00.001");
    EXPECT_EQ(TimeText(360'000'000), "100:00:00.000");
    EXPECT_EQ(TimeText(std::numeric_limits<std::int64_t>::min()), "-2562047788015:12:55.808");
}

TEST(ClockText, StartsAnewAtMidnight) {
    EXPECT_EQ(ClockText(kStart, 0), "23:59:58.250");
    EXPECT_EQ(ClockText(kStart, 2000), "00:00:00.250");
    EXPECT_EQ(ClockText({2024, 1, 1, 0, 0, 0, 0}, -1), "23:59:59.999");
}

TEST(DateText, KnowsTheCalendar) {
    EXPECT_EQ(DateText(kStart, 0), "2024-02-28");
    EXPECT_EQ(DateText(kStart, 2000), "2024-02-29");
    EXPECT_EQ(DateText({2024, 1, 1, 0, 0, 0, 0}, -1), "2023-12-31");
}

TEST(DateText, HoldsFarMomentsInReach) {
    EXPECT_EQ(DateText({2000, 1, 1, 0, 0, 0, 0}, std::numeric_limits<std::int64_t>::max()), "2291-07-15");
}

} // namespace
} // namespace orvanta::signal
