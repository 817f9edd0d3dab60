// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/measure_cursor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <utility>

namespace orvanta::review {
namespace {

/// A wave of 50 about an offset, with a smaller one of another frequency.
TraceLine WaveOf(double hz, double seconds, double offset = 0, double rate = 256, double otherHz = 0) {
    TraceRun run{10, 1 / rate, {}};
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i) {
        const double angle = 2 * std::numbers::pi * i / rate;
        run.values.push_back(
            static_cast<float>(offset + 50 * std::sin(hz * angle + 0.3) + 20 * std::sin(otherHz * angle)));
    }
    return {{run}, {}};
}

const TraceLine kTwoRuns{{TraceRun{1, 0.5, {1, 2, 3}}, TraceRun{10, 0.5, {4, -5}}}, {}};

TEST(MeasureCursor, ReadsTheNearestSample) {
    EXPECT_EQ(TraceValueAt(kTwoRuns, 1), (TraceReading{1, 1}));
    EXPECT_EQ(TraceValueAt(kTwoRuns, 1.6), (TraceReading{1.5, 2}));
    EXPECT_EQ(TraceValueAt(kTwoRuns, 1.8), (TraceReading{2, 3}));
    EXPECT_EQ(TraceValueAt(kTwoRuns, 10.6), (TraceReading{10.5, -5}));
}

TEST(MeasureCursor, ReadsTheEarlierOfTwoSamples) {
    EXPECT_EQ(TraceValueAt(kTwoRuns, 1.25), (TraceReading{1, 1}));
}

TEST(MeasureCursor, ReadsNothingInAGapOrOutside) {
    EXPECT_EQ(TraceValueAt(kTwoRuns, 5), std::nullopt);
    EXPECT_EQ(TraceValueAt(kTwoRuns, 0.5), std::nullopt);
    EXPECT_EQ(TraceValueAt(kTwoRuns, 11), std::nullopt);
    EXPECT_EQ(TraceValueAt(TraceLine{{}, {{1, 2}}}, 0), std::nullopt);
}

TEST(MeasureCursor, FindsLeastAndGreatestBetweenTwoTimes) {
    EXPECT_EQ(TraceRangeBetween(kTwoRuns, 1.5, 2), (TraceColumn{2, 3}));
    EXPECT_EQ(TraceRangeBetween(kTwoRuns, 10.2, 1.5), (TraceColumn{2, 4}));
    EXPECT_EQ(TraceRangeBetween(kTwoRuns, 0, 100), (TraceColumn{-5, 4}));
    EXPECT_TRUE(TraceRangeBetween(kTwoRuns, 3, 9).IsEmpty());
    EXPECT_TRUE(TraceRangeBetween(kTwoRuns, 1.6, 1.9).IsEmpty());
}

TEST(MeasureCursor, FindsFrequencyAndAmplitudeOfAWave) {
    for (const double hz : {2.0, 3.3, 9.7, 10.0, 40.25, 100.0}) {
        const auto wave = DominantWaveBetween(WaveOf(hz, 4), 11, 13);
        ASSERT_TRUE(wave.has_value()) << hz;
        EXPECT_NEAR(wave->frequency, hz, 0.02) << hz;
        EXPECT_NEAR(wave->amplitude, 50, 0.5) << hz;
    }
}

TEST(MeasureCursor, FindsTheStrongerOfTwoWavesAboutAnOffset) {
    const auto wave = DominantWaveBetween(WaveOf(10, 4, 100'000, 256, 22), 10.5, 13.5);

    ASSERT_TRUE(wave.has_value());
    EXPECT_NEAR(wave->frequency, 10, 0.01);
    EXPECT_NEAR(wave->amplitude, 50, 0.3);
}

TEST(MeasureCursor, TakesTimesInEitherOrder) {
    const TraceLine line = WaveOf(7, 4);
    const auto forward = DominantWaveBetween(line, 11, 12.5), backward = DominantWaveBetween(line, 12.5, 11);

    ASSERT_TRUE(forward && backward);
    EXPECT_EQ(forward->frequency, backward->frequency);
    EXPECT_EQ(forward->amplitude, backward->amplitude);
}

TEST(MeasureCursor, FindsNoWaveWhereNothingMoves) {
    EXPECT_FALSE(
        DominantWaveBetween({{TraceRun{0, 0.01, std::vector<float>(500, 123.4F)}}, {}}, 0, 5).has_value());
    EXPECT_FALSE(
        DominantWaveBetween({{TraceRun{0, 0.01, std::vector<float>(500, 0)}}, {}}, 0, 5).has_value());
}

TEST(MeasureCursor, FindsNoWaveInAFewSamplesOrTooMany) {
    EXPECT_FALSE(DominantWaveBetween(WaveOf(30, 4), 11, 11 + 6.5 / 256).has_value());
    EXPECT_TRUE(DominantWaveBetween(WaveOf(60, 4), 11, 11 + 7.5 / 256).has_value());
    EXPECT_FALSE(DominantWaveBetween(WaveOf(10, 300), 10, 300).has_value());
}

TEST(MeasureCursor, FindsNoWaveAcrossAGap) {
    TraceLine line = WaveOf(10, 4);
    line.runs.push_back(line.runs[0]);
    line.runs[1].start = 15;

    EXPECT_FALSE(DominantWaveBetween(line, 13, 16).has_value());
    EXPECT_FALSE(DominantWaveBetween(line, 9, 12).has_value());
    EXPECT_TRUE(DominantWaveBetween(line, 15.5, 17).has_value());
}

} // namespace
} // namespace orvanta::review
