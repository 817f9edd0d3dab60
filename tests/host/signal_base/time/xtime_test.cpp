// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
constexpr std::int64_t kLatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kEarliest = std::numeric_limits<std::int64_t>::min();

XTimeInterval Seconds(double begin, double end) {
    return {XTime::FromSeconds(begin), XTime::FromSeconds(end)};
}

TEST(XTime, RoundsToTheNearestNanosecond) {
    EXPECT_EQ(XTime::FromSeconds(0.1).Nanoseconds(), 100'000'000);
    EXPECT_EQ(XTime::FromSeconds(-1.5).Nanoseconds(), -1'500'000'000);
    EXPECT_EQ(XTime::FromSeconds(1.0 / 3).Nanoseconds(), 333'333'333);
    EXPECT_EQ(XTime::FromSeconds(0.6e-9).Nanoseconds(), 1);
}

TEST(XTime, HoldsWhatIsTooLargeInReach) {
    EXPECT_EQ(XTime::FromSeconds(1e300).Nanoseconds(), 9'200'000'000'000'000'000);
    EXPECT_EQ(XTime::FromSeconds(-INFINITY).Nanoseconds(), -9'200'000'000'000'000'000);
    EXPECT_EQ(XTime::FromSeconds(NAN).Nanoseconds(), 0);
}

TEST(XTime, ASamplesTimeLeadsBackToIt) {
    for (const double rate : {256.0, 1000.0 / 3, 511.7, 44100.0}) {
        for (const double sample : {1.0, 12345.0, 44'236'799.0}) {
            EXPECT_EQ(std::round(XTime::FromSeconds(sample / rate).Seconds() * rate), sample) << rate;
        }
    }
}

TEST(XTime, IsOrdered) {
    EXPECT_LT(XTime::FromSeconds(-1), XTime());
    EXPECT_EQ(XTime::FromSeconds(0), XTime());
}

TEST(XTimeInterval, CountsSamplesToTheNearest) {
    EXPECT_EQ(Seconds(1, 3).GetDuration(256), 512U);
    EXPECT_EQ(Seconds(0, 0.0149).GetDuration(100), 1U);
    EXPECT_EQ(Seconds(0, 0.015).GetDuration(100), 2U);
    EXPECT_EQ(Seconds(-2, -1).GetDuration(100), 100U);
}

TEST(XTimeInterval, WithoutLengthOrRateLastsNothing) {
    EXPECT_EQ(Seconds(2, 2).GetDuration(100), 0U);
    EXPECT_EQ(Seconds(3, 2).GetDuration(100), 0U);
    EXPECT_EQ(Seconds(0, 2).GetDuration(0), 0U);
}

TEST(XTimeInterval, StaysAtTheLargestCount) {
    const XTimeInterval widest(XTime::FromNanoseconds(kEarliest), XTime::FromNanoseconds(kLatest));
    EXPECT_EQ(Seconds(0, 4294967.295).GetDuration(1000), kMost);
    EXPECT_EQ(Seconds(0, 4294968).GetDuration(1000), kMost);
    EXPECT_EQ(widest.GetDuration(1), kMost);
    EXPECT_EQ(widest.GetDuration(kMost), kMost);
    EXPECT_EQ(Seconds(0, 4294967.294).GetDuration(1000), kMost - 1);
}

TEST(XTimeList, KeepsTheOrderOfAdding) {
    XTimeList list;
    EXPECT_TRUE(list.empty());
    list.push_back(Seconds(5, 6), 3);
    list.push_back(Seconds(1, 2));
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.begin()->Step, 3U);
    EXPECT_EQ(*std::next(list.begin())->Interval.GetBeginPtr(), XTime::FromSeconds(1));
    list.clear();
    EXPECT_TRUE(list.empty());
}

} // namespace
