// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/timeline.h"

#include <gtest/gtest.h>

namespace orvanta::signal {
namespace {

// 10 Hz: samples 0–99 from 0 s, a gap of 5 s, samples 100–149 from 15 s.
const Timeline kGapped(10, {{0, 100, 0}, {100, 50, 15}});

TEST(Timeline, CountsStoredSamples) {
    EXPECT_EQ(kGapped.SampleCount(), 150);
}

TEST(Timeline, DurationIncludesTheGap) {
    EXPECT_DOUBLE_EQ(kGapped.Duration(), 20.0);
}

TEST(Timeline, TimeOfASampleAfterTheGap) {
    EXPECT_DOUBLE_EQ(kGapped.TimeOf(101), 15.1);
}

TEST(Timeline, SampleAtTakesTheNextSampleAfterATimeBetweenTwo) {
    EXPECT_EQ(kGapped.SampleAt(0.25), 3);
}

TEST(Timeline, SampleAtATimeInsideTheGapIsTheFirstAfterIt) {
    EXPECT_EQ(kGapped.SampleAt(12), 100);
}

TEST(Timeline, SampleAtBeyondTheEndIsTheCount) {
    EXPECT_EQ(kGapped.SampleAt(99), 150);
}

TEST(Timeline, RangesAreCutAtTheGap) {
    const std::vector<SampleRange> expected = {{90, 100}, {100, 110}};
    EXPECT_EQ(kGapped.Ranges(9, 16), expected);
}

TEST(Timeline, RangesInsideTheGapAreNone) {
    EXPECT_TRUE(kGapped.Ranges(11, 14).empty());
}

TEST(Timeline, ReversedRangeIsNone) {
    EXPECT_TRUE(kGapped.Ranges(5, 2).empty());
}

TEST(Timeline, StretchesOfOneLengthHaveOneNumberOfSamples) {
    // 0.26 s at 10 Hz are 2.6 samples, rounded to 3.
    EXPECT_EQ(kGapped.Ranges(1, 1.26), std::vector<SampleRange>({{10, 13}}));
    EXPECT_EQ(kGapped.Ranges(1.01, 1.27), std::vector<SampleRange>({{11, 14}}));
    EXPECT_EQ(kGapped.Ranges(1.09, 1.35), std::vector<SampleRange>({{11, 14}}));
    EXPECT_EQ(kGapped.Ranges(15.01, 15.27), std::vector<SampleRange>({{101, 104}}));
}

TEST(Timeline, ALimitEndsAStretchExactly) {
    EXPECT_EQ(kGapped.Ranges(1.01, 1.27, 1.29), std::vector<SampleRange>({{11, 13}}));
    EXPECT_EQ(kGapped.Ranges(1.01, 1.57, 1.31), std::vector<SampleRange>({{11, 14}}));
}

TEST(Timeline, SecondsFromNanosecondsFindTheirOwnSample) {
    const Timeline odd(1000.0 / 3, {{0, 1000, 0}});
    EXPECT_EQ(odd.SampleAt(0.003 * 7 - 1e-10), 7);
}

TEST(Timeline, EmptyTimelineHasNothing) {
    const Timeline none;
    EXPECT_EQ(none.SampleCount(), 0);
    EXPECT_EQ(none.Duration(), 0.0);
    EXPECT_TRUE(none.Ranges(0, 10).empty());
}

} // namespace
} // namespace orvanta::signal
